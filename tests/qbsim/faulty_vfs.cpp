#include "tests/qbsim/faulty_vfs.h"

#include <sqlite3.h>

#include <mutex>

namespace tessaron::qbsim::testing {
namespace {

struct Plan {
  bool armed = false;
  FaultyVfs::Op op = FaultyVfs::Op::Read;
  int remaining = 0;
  bool struck = false;
} g_plan;
std::mutex g_mutex;

// True when this call is the one to fail.
bool Strike(FaultyVfs::Op op) {
  std::lock_guard lock(g_mutex);
  if (!g_plan.armed || g_plan.op != op || g_plan.struck) return false;
  if (--g_plan.remaining > 0) return false;
  g_plan.struck = true;
  return true;
}

// Our file: the default VFS's file lives right behind it in the same allocation.
struct File {
  sqlite3_file base;
  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};
sqlite3_file* Real(sqlite3_file* f) { return reinterpret_cast<File*>(f)->Real(); }
const sqlite3_io_methods* M(sqlite3_file* f) { return Real(f)->pMethods; }
sqlite3_vfs* Default(sqlite3_vfs* vfs) { return static_cast<sqlite3_vfs*>(vfs->pAppData); }

int Close(sqlite3_file* f) { return M(f)->xClose(Real(f)); }
int Read(sqlite3_file* f, void* p, int n, sqlite3_int64 at) {
  return Strike(FaultyVfs::Op::Read) ? SQLITE_IOERR_READ : M(f)->xRead(Real(f), p, n, at);
}
int Write(sqlite3_file* f, const void* p, int n, sqlite3_int64 at) {
  return Strike(FaultyVfs::Op::Write) ? SQLITE_IOERR_WRITE : M(f)->xWrite(Real(f), p, n, at);
}
int Truncate(sqlite3_file* f, sqlite3_int64 size) { return M(f)->xTruncate(Real(f), size); }
int Sync(sqlite3_file* f, int flags) {
  return Strike(FaultyVfs::Op::Sync) ? SQLITE_IOERR_FSYNC : M(f)->xSync(Real(f), flags);
}
int FileSize(sqlite3_file* f, sqlite3_int64* size) { return M(f)->xFileSize(Real(f), size); }
int Lock(sqlite3_file* f, int level) {
  return Strike(FaultyVfs::Op::Lock) ? SQLITE_IOERR_LOCK : M(f)->xLock(Real(f), level);
}
int Unlock(sqlite3_file* f, int level) { return M(f)->xUnlock(Real(f), level); }
int CheckReservedLock(sqlite3_file* f, int* out) { return M(f)->xCheckReservedLock(Real(f), out); }
int FileControl(sqlite3_file* f, int op, void* arg) { return M(f)->xFileControl(Real(f), op, arg); }
int SectorSize(sqlite3_file* f) { return M(f)->xSectorSize(Real(f)); }
int DeviceCharacteristics(sqlite3_file* f) { return M(f)->xDeviceCharacteristics(Real(f)); }
int ShmMap(sqlite3_file* f, int region, int size, int extend, void volatile** p) {
  return M(f)->xShmMap(Real(f), region, size, extend, p);
}
// The write-ahead log's locks are taken here, not in xLock: both count as locks.
int ShmLock(sqlite3_file* f, int offset, int n, int flags) {
  if ((flags & SQLITE_SHM_LOCK) && Strike(FaultyVfs::Op::Lock)) return SQLITE_IOERR_LOCK;
  return M(f)->xShmLock(Real(f), offset, n, flags);
}
void ShmBarrier(sqlite3_file* f) { M(f)->xShmBarrier(Real(f)); }
int ShmUnmap(sqlite3_file* f, int deleteFlag) { return M(f)->xShmUnmap(Real(f), deleteFlag); }
int Fetch(sqlite3_file* f, sqlite3_int64 at, int n, void** p) { return M(f)->xFetch(Real(f), at, n, p); }
int Unfetch(sqlite3_file* f, sqlite3_int64 at, void* p) { return M(f)->xUnfetch(Real(f), at, p); }

const sqlite3_io_methods kMethods = {3,           Close,     Read,       Write,    Truncate,   Sync,
                                     FileSize,    Lock,      Unlock,     CheckReservedLock,    FileControl,
                                     SectorSize,  DeviceCharacteristics, ShmMap,   ShmLock,    ShmBarrier,
                                     ShmUnmap,    Fetch,     Unfetch};

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* f, int flags, int* outFlags) {
  File* file = reinterpret_cast<File*>(f);
  file->base.pMethods = nullptr;
  int rc = Default(vfs)->xOpen(Default(vfs), name, file->Real(), flags, outFlags);
  // SQLite calls xClose only when pMethods is set, and the real file needs it exactly then.
  if (file->Real()->pMethods) file->base.pMethods = &kMethods;
  return rc;
}
int Delete(sqlite3_vfs* v, const char* name, int sync) { return Default(v)->xDelete(Default(v), name, sync); }
int Access(sqlite3_vfs* v, const char* name, int flags, int* out) {
  return Default(v)->xAccess(Default(v), name, flags, out);
}
int FullPathname(sqlite3_vfs* v, const char* name, int n, char* out) {
  return Default(v)->xFullPathname(Default(v), name, n, out);
}
void* DlOpen(sqlite3_vfs* v, const char* name) { return Default(v)->xDlOpen(Default(v), name); }
void DlError(sqlite3_vfs* v, int n, char* out) { Default(v)->xDlError(Default(v), n, out); }
void (*DlSym(sqlite3_vfs* v, void* h, const char* sym))(void) { return Default(v)->xDlSym(Default(v), h, sym); }
void DlClose(sqlite3_vfs* v, void* h) { Default(v)->xDlClose(Default(v), h); }
int Randomness(sqlite3_vfs* v, int n, char* out) { return Default(v)->xRandomness(Default(v), n, out); }
int Sleep(sqlite3_vfs* v, int us) { return Default(v)->xSleep(Default(v), us); }
int CurrentTime(sqlite3_vfs* v, double* out) { return Default(v)->xCurrentTime(Default(v), out); }
int GetLastError(sqlite3_vfs* v, int n, char* out) { return Default(v)->xGetLastError(Default(v), n, out); }
int CurrentTimeInt64(sqlite3_vfs* v, sqlite3_int64* out) { return Default(v)->xCurrentTimeInt64(Default(v), out); }

sqlite3_vfs Make() {
  sqlite3_vfs* real = sqlite3_vfs_find(nullptr);
  sqlite3_vfs v{};
  v.iVersion = 2;
  v.szOsFile = static_cast<int>(sizeof(File)) + real->szOsFile;
  v.mxPathname = real->mxPathname;
  v.zName = FaultyVfs::kName;
  v.pAppData = real;
  v.xOpen = Open;
  v.xDelete = Delete;
  v.xAccess = Access;
  v.xFullPathname = FullPathname;
  v.xDlOpen = DlOpen;
  v.xDlError = DlError;
  v.xDlSym = DlSym;
  v.xDlClose = DlClose;
  v.xRandomness = Randomness;
  v.xSleep = Sleep;
  v.xCurrentTime = CurrentTime;
  v.xGetLastError = GetLastError;
  v.xCurrentTimeInt64 = CurrentTimeInt64;
  return v;
}

}  // namespace

void FaultyVfs::Register() {
  static sqlite3_vfs vfs = Make();
  static int registered = sqlite3_vfs_register(&vfs, 0);
  (void)registered;
}

void FaultyVfs::Arm(Op op, int n) {
  std::lock_guard lock(g_mutex);
  g_plan = Plan{true, op, n, false};
}

void FaultyVfs::Disarm() {
  std::lock_guard lock(g_mutex);
  g_plan.armed = false;
}

bool FaultyVfs::Struck() {
  std::lock_guard lock(g_mutex);
  return g_plan.struck;
}

const char* OpName(FaultyVfs::Op op) {
  switch (op) {
    case FaultyVfs::Op::Read: return "read";
    case FaultyVfs::Op::Write: return "write";
    case FaultyVfs::Op::Sync: return "sync";
    case FaultyVfs::Op::Lock: return "lock";
  }
  return "?";
}

}  // namespace tessaron::qbsim::testing
