#include "Traced.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

// The names of the registers are those of this processor.
#if !defined(__x86_64__)
#error "the harness reads the registers of x86-64"
#endif

namespace orvex {
namespace {

constexpr int kSystemCall = SIGTRAP | 0x80;

user_regs_struct registersOf(pid_t process) {
  user_regs_struct registers{};
  ::ptrace(PTRACE_GETREGS, process, nullptr, &registers);
  return registers;
}

void setRegisters(pid_t process, user_regs_struct registers) {
  ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}

// At the beginning of a call. Returns the error to put in the place of its result, or 0.
int interfere(pid_t process, user_regs_struct registers, const Fault& fault, bool isDue) {
  using enum Fault::Kind;
  const bool isExchange = fault.withoutExchange && registers.orig_rax == SYS_renameat2 &&
                          registers.r8 == RENAME_EXCHANGE;
  if (isExchange || (isDue && fault.kind == Error)) {
    // No call at all.
    registers.orig_rax = ~0ULL;
    setRegisters(process, registers);
    return isExchange ? EINVAL : fault.code;
  }
  if (!isDue) return 0;
  if (fault.kind == Kill) ::kill(process, SIGKILL);
  if (fault.kind == Short) {
    registers.rdx = (registers.rdx + 1) / 2;
    setRegisters(process, registers);
  }
  return fault.kind == ErrorAfter ? fault.code : 0;
}

}  // namespace

Trace runTraced(const std::function<int()>& work, const Fault& fault) {
  const pid_t process = ::fork();
  if (process == 0) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    ::_exit(work());
  }
  int status = 0;
  ::waitpid(process, &status, 0);
  if (!WIFSTOPPED(status) || ::ptrace(PTRACE_SETOPTIONS, process, nullptr,
                                      PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
    std::perror("processes cannot be traced here");
    std::exit(2);
  }
  Trace trace;
  std::size_t counted = 0;
  bool isInside = false;
  int error = 0;
  int signal = 0;
  while (true) {
    ::ptrace(PTRACE_SYSCALL, process, nullptr, signal);
    if (::waitpid(process, &status, 0) < 0) break;
    if (WIFEXITED(status)) trace.exitCode = WEXITSTATUS(status);
    if (!WIFSTOPPED(status)) break;
    signal = WSTOPSIG(status) == kSystemCall ? 0 : WSTOPSIG(status);
    if (signal != 0) continue;
    isInside = !isInside;
    user_regs_struct registers = registersOf(process);
    if (isInside) {
      const auto number = static_cast<long>(registers.orig_rax);
      trace.calls.push_back(number);
      const bool isCounted = fault.number == -1 || fault.number == number;
      error = interfere(process, registers, fault, isCounted && counted == fault.call);
      counted += isCounted ? 1 : 0;
    } else if (error != 0) {
      registers.rax = static_cast<unsigned long long>(-static_cast<long long>(error));
      setRegisters(process, registers);
    }
  }
  return trace;
}

}  // namespace orvex
