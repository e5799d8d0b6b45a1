#include "Checks.h"
#include "Scenario.h"
#include "Traced.h"
#include "support/TemporaryTree.h"

#include <cerrno>
#include <map>
#include <sys/syscall.h>

namespace orvex {
namespace {

using enum Fault::Kind;

// What each call on files can fail with. A closed file is closed even where that failed.
const std::multimap<long, Fault> kErrors = [] {
  std::multimap<long, Fault> errors;
  const auto add = [&](std::initializer_list<long> calls, std::initializer_list<int> codes) {
    for (const long call : calls)
      for (const int code : codes)
        errors.insert(
            {call, {.kind = call == SYS_close ? ErrorAfter : Error, .number = call, .code = code}});
  };
  add({SYS_openat}, {EACCES, EMFILE, EIO, ENOSPC, EROFS});
  add({SYS_mkdirat, SYS_mkdir, SYS_renameat, SYS_rename, SYS_renameat2},
      {EACCES, EIO, ENOSPC, EROFS});
  add({SYS_unlinkat}, {EACCES, EIO, EROFS});
  add({SYS_write}, {ENOSPC, EDQUOT, EIO});
  add({SYS_fsync, SYS_close}, {EIO, ENOSPC});
  add({SYS_getdents64, SYS_fstat, SYS_newfstatat, SYS_fstatfs, SYS_read, SYS_fcntl,
       SYS_sync_file_range},
      {EIO});
  add({SYS_flock}, {ENOLCK, EINTR});
  errors.insert({SYS_write, {.kind = Short, .number = SYS_write}});
  return errors;
}();

// 0 done, 1 refused. What else is thrown ends the process.
int tryChange(const Scenario& scenario, const QByteArray& folder) {
  return isDone([&] { scenario.change(folder); }) ? 0 : 1;
}

// Interferes once and says what was found wrong afterwards, if anything was.
std::string faultOf(const Scenario& scenario, const TemporaryTree& before, const Fault& fault) {
  const TemporaryTree tree;
  tree.copyFrom(before);
  const QByteArray folder = tree.root();
  const Trace trace = runTraced([&] { return tryChange(scenario, folder); }, fault);

  const std::string found = scenario.state(folder);
  const bool isBefore = found == scenario.before;
  const bool isAfter = found == scenario.after;
  const std::string ending =
      "ended with " + std::to_string(trace.exitCode) + ", shows '" + found + "'";
  if (fault.kind == Kill) {
    if (!isBefore && !isAfter) return ending;
  } else {
    if (trace.exitCode != 0 && trace.exitCode != 1) return ending;
    if (!isAfter && (trace.exitCode == 0 || !isBefore)) return ending;
    if (trace.exitCode == 1 && !isBefore && !scenario.maybeDone) return ending;
    const bool isLost =
        (fault.number == SYS_write && fault.kind == Error) || fault.number == SYS_fsync;
    if (isLost && trace.exitCode == 0) return "success without what was to be written";
    if (fault.kind == Short && trace.exitCode != 0) return "given up over a short write";
  }
  if (std::string wrong = scenario.aftermath(folder, found); !wrong.empty()) return wrong;
  return tryChange(scenario, folder) == 0 ? "" : "cannot be done any more";
}

std::vector<long> callsOf(const Scenario& scenario, const TemporaryTree& before) {
  const TemporaryTree tree;
  tree.copyFrom(before);
  Trace trace = runTraced([&] { return tryChange(scenario, tree.root()); },
                          {.withoutExchange = scenario.withoutExchange});
  if (trace.exitCode != 0 || scenario.state(tree.root()) != scenario.after) return {};
  if (std::ranges::count(trace.calls, SYS_fsync) < scenario.syncs) {
    std::fprintf(stderr, "%s: something is not made durable\n", scenario.name.c_str());
    return {};
  }
  return std::move(trace.calls);
}

bool check(const char* what, std::size_t most,
           const std::function<std::vector<Fault>(long call)>& faultsAt) {
  bool isWell = true;
  for (const Scenario& scenario : scenarios()) {
    const TemporaryTree before;
    scenario.prepare(before.root());
    // What libraries do once is done here, not in every process.
    const TemporaryTree warm;
    std::ignore = tryChange(scenario, warm.root());
    const std::vector<long> calls = callsOf(scenario, before);
    std::vector<Fault> faults;
    std::map<long, std::size_t> counted;
    for (std::size_t call = 0; call < calls.size(); ++call) {
      const std::size_t ofThisNumber = counted[calls[call]]++;
      for (Fault fault : faultsAt(calls[call])) {
        fault.call = fault.number == -1 ? call : ofThisNumber;
        fault.withoutExchange = scenario.withoutExchange;
        faults.push_back(fault);
      }
    }
    Tally tally(std::string(what) + ' ' + scenario.name);
    for (const std::size_t pick : sample(faults.size(), most)) {
      const Fault& fault = faults[pick];
      tally.add(faultOf(scenario, before, fault), [&] {
        return "call " + std::to_string(fault.call) + " of number " + std::to_string(fault.number) +
               ", error " + std::to_string(fault.code);
      });
    }
    isWell &= tally.print(std::to_string(calls.size()) + " calls");
  }
  return isWell;
}

}  // namespace

bool checkKills(std::size_t most) {
  return check("kill", most, [](long) { return std::vector<Fault>{{.kind = Kill}}; });
}

bool checkErrors(std::size_t most) {
  return check("errors", most, [](long call) {
    std::vector<Fault> faults;
    for (auto [error, end] = kErrors.equal_range(call); error != end; ++error)
      faults.push_back(error->second);
    return faults;
  });
}

}  // namespace orvex
