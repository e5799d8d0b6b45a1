// Writes the list of the installed LV2 effects to standard output, for the panel and the command
// line; the arguments are the URIs of bundles to leave out. A program of its own, because a single
// wrong number in a bundle's data can end the process that reads it. Runs no code of any plug-in.
#include "platform/linux/Lv2Stream.h"
#include "platform/linux/lv2/BundleSearch.h"
#include "platform/linux/lv2/EffectReader.h"

#include <QFile>

#include <algorithm>
#include <span>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace orvex;

// Records reach the other end one by one, also those before a sudden end.
class Output {
 public:
  Output() {
    std::ignore = file_.open(STDOUT_FILENO, QIODevice::WriteOnly);
    stream_.setVersion(kLv2StreamVersion);
  }
  void reading(const LilvNode& bundle) {
    stream_ << Lv2Record::Reading << QByteArray(lilv_node_as_uri(&bundle));
    file_.flush();
  }
  void effect(const AudioComponent& component) {
    stream_ << Lv2Record::Effect << component;
    file_.flush();
  }
  void end() {
    stream_ << Lv2Record::End;
    file_.flush();
  }

 private:
  QFile file_;
  QDataStream stream_{&file_};
};

}  // namespace

int main(int argc, char** argv) {
  // A bundle that ends this process would leave a dump behind at every start of the panel; a limit
  // of one byte, unlike none, also holds for dumps that are piped to a collector.
  const rlimit noDump{1, 1};
  setrlimit(RLIMIT_CORE, &noDump);

  const std::span<char*> leftOut(argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0)));
  const auto isLeftOut = [leftOut](const LilvNode* bundle) {
    return std::ranges::count(leftOut, std::string_view(lilv_node_as_uri(bundle))) > 0;
  };
  Output output;
  const LilvPointer<LilvWorld> world(lilv_world_new());
  // Such manifests are programs.
  const LilvPointer<LilvNode> no(lilv_new_bool(world.get(), false));
  lilv_world_set_option(world.get(), LILV_OPTION_DYN_MANIFEST, no.get());

  for (const QByteArray& folder : lv2Bundles(lv2SearchPath())) {
    const LilvPointer<LilvNode> bundle(
        lilv_new_file_uri(world.get(), nullptr, (folder + '/').constData()));
    if (isLeftOut(bundle.get())) continue;
    output.reading(*bundle);
    lilv_world_load_bundle(world.get(), bundle.get());
    // Files that were read before are not read again.
    lilv_world_load_specifications(world.get());
  }
  lilv_world_load_plugin_classes(world.get());

  const EffectReader reader(*world);
  const LilvPlugins* plugins = lilv_world_get_all_plugins(world.get());
  LILV_FOREACH(plugins, i, plugins) {
    const LilvPlugin* plugin = lilv_plugins_get(plugins, i);
    output.reading(*lilv_plugin_get_bundle_uri(plugin));
    if (const auto effect = reader.read(*plugin)) output.effect(*effect);
  }
  output.end();
  return 0;
}
