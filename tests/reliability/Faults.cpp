#include "Checks.h"
#include "Scenario.h"
#include "Tally.h"
#include "Traced.h"
#include "support/TemporaryTree.h"

#include <cerrno>
#include <map>
#include <sys/syscall.h>

namespace orvex {
namespace {

const std::vector<Scenario> kScenarios{
    {.name = "install", .before = "", .after = "1"},
    {.name = "update", .before = "1", .after = "2"},
    {.name = "reinstall", .before = "1", .after = "1b"},
    {.name = "uninstall", .before = "1", .after = ""},
    {.name = "update without exchange", .before = "1", .after = "2", .withoutExchange = true},
    {.name = "reinstall without exchange", .before = "1", .after = "1b", .withoutExchange = true}};

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
  add({SYS_getdents64, SYS_fstat, SYS_newfstatat, SYS_fstatfs, SYS_read, SYS_fcntl}, {EIO});
  add({SYS_flock}, {ENOLCK, EINTR});
  errors.insert({SYS_write, {.kind = Short, .number = SYS_write}});
  return errors;
}();

// A store in the state before a change, as often as it is needed.
class Before {
 public:
  explicit Before(const Scenario& scenario) {
    if (scenario.before.empty()) return;
    packOf(scenario.before).installIn(PackStore(root()));
    bystander().installIn(PackStore(root()));
  }
  [[nodiscard]] QByteArray root() const { return tree_.path("store/packs"); }
  void copyTo(const TemporaryTree& tree) const {
    std::filesystem::copy(tree_.root().toStdString(), tree.root().toStdString(),
                          std::filesystem::copy_options::recursive);
  }

 private:
  TemporaryTree tree_;
};

std::string withOther(const std::string& state) {
  if (state.ends_with("other")) return state;
  return state.empty() ? "other" : state + " other";
}

// The first install finds nothing at all.
std::string stateWith(const Scenario& scenario, const std::string& version) {
  return scenario.before.empty() ? version : withOther(version);
}

// Interferes once and says what was found wrong afterwards, if anything was.
std::string faultOf(const Scenario& scenario, const Before& before, const Fault& fault) {
  const TemporaryTree tree;
  before.copyTo(tree);
  const QByteArray root = tree.path("store/packs");
  const Trace trace = runTraced([&] { return change(root, scenario.after); }, fault);

  const std::string found = stateOf(root);
  const bool isBefore = found == stateWith(scenario, scenario.before);
  const bool isAfter = found == stateWith(scenario, scenario.after);
  const std::string ending =
      "ended with " + std::to_string(trace.exitCode) + ", shows '" + found + "'";
  if (fault.kind == Kill) {
    if (!isBefore && !isAfter) return ending;
  } else {
    if (trace.exitCode != 0 && trace.exitCode != 1) return ending;
    if (trace.exitCode == 0 ? !isAfter : !isBefore) return ending;
    const bool isLost =
        (fault.number == SYS_write && fault.kind == Error) || fault.number == SYS_fsync;
    if (isLost && trace.exitCode == 0) return "success without what was to be written";
    if (fault.kind == Short && trace.exitCode != 0) return "given up over a short write";
  }
  // The next install finds its way and clears up.
  bystander().installIn(PackStore(root));
  if (!leftoversIn(root).isEmpty()) return "leftovers stay";
  if (const std::string now = stateOf(root); now != withOther(found))
    return "shows '" + now + "' after another pack was installed, '" + found + "' before";
  if (change(root, scenario.after) != 0) return "cannot be done any more";
  return {};
}

std::vector<long> callsOf(const Scenario& scenario, const Before& before) {
  const TemporaryTree tree;
  before.copyTo(tree);
  const QByteArray root = tree.path("store/packs");
  Trace trace = runTraced([&] { return change(root, scenario.after); },
                          {.withoutExchange = scenario.withoutExchange});
  if (trace.exitCode != 0 || stateOf(root) != stateWith(scenario, scenario.after)) return {};
  return std::move(trace.calls);
}

bool check(const char* what, std::size_t most,
           const std::function<std::vector<Fault>(long call)>& faultsAt) {
  // What libraries do once is done here, not in every process.
  const TemporaryTree warm;
  packOf("1").installIn(PackStore(warm.path("packs")));
  bool isWell = true;
  for (const Scenario& scenario : kScenarios) {
    const Before before(scenario);
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
