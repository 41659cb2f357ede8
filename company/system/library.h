// Libraries that are loaded while a program runs: for POSIX in library_posix.cpp, for Windows in
// library_win32.cpp.
#pragma once

#include <string>

namespace goods {

// Null when it cannot be loaded; problem is then the system's reason, in its own words. file: an absolute
// path.
void* OpenLibrary(const std::string& file, std::string& problem);
void CloseLibrary(void* library);
// Null when there is none of that name.
void* FindInLibrary(void* library, const char* name);
// The same among what the program and the libraries that it is linked with export.
void* FindInProgram(const char* name);
// The file of the program or library that the code or constant at this address is in; empty where it cannot
// be told.
std::string FileOfCode(const void* address);

}  // namespace goods
