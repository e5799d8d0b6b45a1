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

void skip(pid_t process, user_regs_struct registers) {
  registers.orig_rax = ~0ULL;
  ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}

void setResult(pid_t process, int code) {
  user_regs_struct registers = registersOf(process);
  registers.rax = static_cast<unsigned long long>(-static_cast<long long>(code));
  ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}

// At the beginning of a call. Returns the error to put in the place of its result, or 0.
int interfere(pid_t process, const Fault& fault, bool isDue) {
  user_regs_struct registers = registersOf(process);
  if (fault.withoutExchange && registers.orig_rax == SYS_renameat2 &&
      registers.r8 == RENAME_EXCHANGE) {
    skip(process, registers);
    return EINVAL;
  }
  if (!isDue) return 0;
  switch (fault.kind) {
    case Fault::Kind::Kill:
      ::kill(process, SIGKILL);
      return 0;
    case Fault::Kind::Error:
      skip(process, registers);
      return fault.code;
    case Fault::Kind::ErrorAfter:
      return fault.code;
    case Fault::Kind::Short:
      registers.rdx = (registers.rdx + 1) / 2;
      ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
      return 0;
    case Fault::Kind::None:
      return 0;
  }
  return 0;
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
    if (isInside) {
      const auto number = static_cast<long>(registersOf(process).orig_rax);
      trace.calls.push_back(number);
      const bool isCounted = fault.number == -1 || fault.number == number;
      error = interfere(process, fault, isCounted && counted == fault.call);
      counted += isCounted ? 1 : 0;
    } else if (error != 0) {
      setResult(process, error);
    }
  }
  return trace;
}

}  // namespace orvex
