#include "faulty_vfs.h"

#include <cstdlib>

#include <sqlite3.h>

namespace goods {

namespace {

int calls = 0;
int failAt = 0;
bool lasting = false;

bool Fails() {
  ++calls;
  return failAt != 0 && (calls == failAt || (lasting && calls > failAt));
}

// The real file lies behind this one in the same memory.
struct File : sqlite3_file {
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File& Of(sqlite3_file* file) { return *static_cast<File*>(file); }

template <auto Method, int Failure, typename... Arguments>
int Forward(sqlite3_file* file, Arguments... arguments) {
  if (Fails()) return Failure;
  sqlite3_file* real = Of(file).Real();
  return (real->pMethods->*Method)(real, arguments...);
}

template <auto Method, typename... Arguments>
int Through(sqlite3_file* file, Arguments... arguments) {
  sqlite3_file* real = Of(file).Real();
  return (real->pMethods->*Method)(real, arguments...);
}

int Close(sqlite3_file* file) {
  sqlite3_file* real = Of(file).Real();
  return real->pMethods == nullptr ? SQLITE_OK : real->pMethods->xClose(real);
}

using Methods = sqlite3_io_methods;

const Methods& TheMethods() {
  static const Methods methods = [] {
    Methods made{};
    made.iVersion = 1;  // without shared memory and mapped pages, so that every access passes here
    made.xClose = Close;
    made.xRead = Forward<&Methods::xRead, SQLITE_IOERR_READ, void*, int, sqlite3_int64>;
    made.xWrite = Forward<&Methods::xWrite, SQLITE_FULL, const void*, int, sqlite3_int64>;
    made.xTruncate = Forward<&Methods::xTruncate, SQLITE_IOERR_TRUNCATE, sqlite3_int64>;
    made.xSync = Forward<&Methods::xSync, SQLITE_IOERR_FSYNC, int>;
    made.xFileSize = Forward<&Methods::xFileSize, SQLITE_IOERR_FSTAT, sqlite3_int64*>;
    made.xLock = Forward<&Methods::xLock, SQLITE_IOERR_LOCK, int>;
    made.xUnlock = Through<&Methods::xUnlock, int>;
    made.xCheckReservedLock = Forward<&Methods::xCheckReservedLock, SQLITE_IOERR_CHECKRESERVEDLOCK, int*>;
    made.xFileControl = Through<&Methods::xFileControl, int, void*>;
    made.xSectorSize = Through<&Methods::xSectorSize>;
    made.xDeviceCharacteristics = Through<&Methods::xDeviceCharacteristics>;
    return made;
  }();
  return methods;
}

sqlite3_vfs* real = nullptr;

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  file->pMethods = nullptr;
  if (Fails()) return SQLITE_CANTOPEN;
  const int code = real->xOpen(real, name, Of(file).Real(), flags, outFlags);
  if (code == SQLITE_OK) file->pMethods = &TheMethods();
  return code;
}

int Delete(sqlite3_vfs*, const char* name, int flush) {
  return Fails() ? SQLITE_IOERR_DELETE : real->xDelete(real, name, flush);
}

int Access(sqlite3_vfs*, const char* name, int flags, int* result) {
  return Fails() ? SQLITE_IOERR_ACCESS : real->xAccess(real, name, flags, result);
}

sqlite3_vfs faulty;

}  // namespace

FaultyDisk::FaultyDisk(int at, bool stays) {
  calls = 0;
  failAt = at;
  lasting = stays;
  real = sqlite3_vfs_find("unix");
  faulty = *real;
  faulty.zName = "faulty";
  faulty.szOsFile = static_cast<int>(sizeof(File)) + real->szOsFile;
  faulty.pNext = nullptr;
  faulty.xOpen = Open;
  faulty.xDelete = Delete;
  faulty.xAccess = Access;
  sqlite3_vfs_register(&faulty, 1);
}

FaultyDisk::~FaultyDisk() {
  sqlite3_vfs_unregister(&faulty);
  sqlite3_vfs_register(real, 1);
  failAt = 0;
}

int FaultyDisk::Calls() { return calls; }

}  // namespace goods
