// Random request blocks through the adapter of every shape, with a settings
// function that takes whatever it is given and hands out results from a
// TMemory: zeroed arrays of a few elements (null strings, empty inner lists),
// strings and numbers. Whatever the block, the adapter must decode, call,
// copy back, release and encode without reading or writing outside a buffer,
// and give back every block it was handed.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <type_traits>
#include <vector>

#include "api/ShapeTable.h"
#include "base/TMemory.h"

namespace {

using DL::EAdapterShape;
using DL::Adapters::TAdapterEnv;
using DL::Adapters::TShape;

template <class T>
concept PlainArray = requires(T a) {
  a.count;
  a.items;
};

struct TSettings {
  TMemory* memory = nullptr;
  std::size_t items = 0;

  template <class A>
  void Take(A a) {
    if constexpr (std::is_pointer_v<A> && std::is_pointer_v<std::remove_pointer_t<A>>) {
      using T = std::remove_pointer_t<std::remove_pointer_t<A>>;
      if constexpr (std::is_same_v<T, char>) *a = memory->ConstructString(items + 1);
      else if constexpr (PlainArray<T>) *a = memory->ConstructArray<T>(items);
    } else if constexpr (std::is_pointer_v<A> && !std::is_same_v<A, const char*>) {
      using T = std::remove_pointer_t<A>;
      if constexpr (!PlainArray<T>) *a = T{};
      else if (a != nullptr && a->count != 0 && a->items == nullptr) std::abort();
    }
  }
};

template <EAdapterShape S>
void RunShape(std::vector<unsigned char>& block, TSettings& settings, const TAdapterEnv& env, int answer) {
  auto fn = [&](auto... args) {
    (settings.Take(args), ...);
    return answer;
  };
  (void)TShape<S>::Run(fn, "Cmd", block, "HOLDER", env);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  TMemory memory;
  TSettings settings{&memory, static_cast<std::size_t>(data[1] % 4)};
  std::size_t lines = 0;
  TAdapterEnv env;
  env.noteChange = [&](const std::string&, std::string) { ++lines; };
  env.freeMemory = [&](const char*, void** block) { return memory.FreeMemory(block); };
  std::vector<unsigned char> block(data + 2, data + size);
  const int answer = (data[1] & 0x80) != 0 ? 3 : 0;
  std::size_t index = data[0] % DL::kAdapterShapeCount;
  std::size_t row = 0;
#define ZDL_SHAPE(name, kind)                                                  \
  if (row++ == index) RunShape<EAdapterShape::name>(block, settings, env, answer);
#include "api/AdapterShapes.def"
#undef ZDL_SHAPE
  // A reading adapter gives back what it was handed; a failed call notes nothing.
  if (answer == 0 && memory.Outstanding() != 0) std::abort();
  if (answer != 0 && lines != 0) std::abort();
  return 0;
}
