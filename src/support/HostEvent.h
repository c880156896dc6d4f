#pragma once
// The host process's event log. The trading server exports a C-linkage
//   void devent(int level, const char* format, ...)
// which the module finds at first use with dlsym(RTLD_DEFAULT). A process
// without it (a tool, a test that does not define it) has logging off.
//
// This is the one door to the host's log: every layer logs through it, so the
// engine runs and is tested without a trading server.

namespace Library::Host {

// Formats the text and hands it to the host's devent as ("%s", text), so the
// host never re-interprets a '%' that came from data. Does nothing, and
// formats nothing, when the process has no devent.
void Event(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));

// True when the process exports devent.
bool EventEnabled();

}  // namespace Library::Host
