// A SQLite VFS for tests that passes every call on to the default VFS and fails the Nth
// read, write, sync or lock after it is armed, as a failing disk or a lost lock would.
// Processors use it through ProcessorOptions::databaseVfs = FaultyVfs::kName.
#pragma once

namespace tessaron::qbsim::testing {

class FaultyVfs {
 public:
  enum class Op { Read, Write, Sync, Lock };
  static constexpr const char* kName = "tessaron-faulty";

  // Registers the VFS (once per process; not as the default).
  static void Register();
  // From now, the n-th call (1-based) of `op` on any file fails; the others pass.
  static void Arm(Op op, int n);
  static void Disarm();
  // Whether the armed failure has struck since Arm.
  static bool Struck();
};

const char* OpName(FaultyVfs::Op op);

}  // namespace tessaron::qbsim::testing
