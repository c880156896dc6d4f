// Prints the remote command reference in Markdown, to standard output or to the
// file named as the only argument.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "api/CommandReference.h"

int main(int argc, char** argv) {
  if (argc > 2) {
    std::fprintf(stderr, "usage: %s [output.md]\n", argv[0]);
    return 2;
  }
  const std::string text = DL::CommandReferenceMarkdown();
  if (argc == 1) {
    std::cout << text;
    return std::cout ? 0 : 1;
  }
  std::ofstream out(argv[1], std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) {
    std::fprintf(stderr, "cannot write %s\n", argv[1]);
    return 1;
  }
  return 0;
}
