// The minimal host as a library that a program loads and unloads, together with everything that it needs.
#define main ShowTheCard
#include "examples/minimal_host/main.cpp"
#undef main

extern "C" int RunUnloadHost() { return ShowTheCard(); }
