#include "platform/linux/lv2/EffectReader.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <QFileInfo>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace orvex {
namespace {

#define LV2_CORE "http://lv2plug.in/ns/lv2core#"
#define LV2_EXT "http://lv2plug.in/ns/ext/"

// A name that is longer is no name.
constexpr qsizetype kMaxText = 256;
// Classes are data too, and could be each other's parents.
constexpr int kMaxClassDepth = 32;

// Features that tell a plug-in something, or hand it a table to look up; they lead out of it
// nowhere.
constexpr std::array kConfinedFeatures{LV2_CORE "hardRTCapable",
                                       LV2_CORE "inPlaceBroken",
                                       LV2_CORE "isLive",
                                       LV2_EXT "urid#map",
                                       LV2_EXT "urid#unmap",
                                       LV2_EXT "uri-map",
                                       LV2_EXT "options#options",
                                       LV2_EXT "buf-size#boundedBlockLength",
                                       LV2_EXT "buf-size#fixedBlockLength",
                                       LV2_EXT "buf-size#powerOf2BlockLength",
                                       LV2_EXT "buf-size#coarseBlockLength"};

// What else the standard has hosts offer to effects.
constexpr std::array kOtherFeatures{LV2_EXT "log#log",
                                    LV2_EXT "worker#schedule",
                                    LV2_EXT "state#loadDefaultState",
                                    LV2_EXT "state#makePath",
                                    LV2_EXT "state#mapPath",
                                    LV2_EXT "state#freePath",
                                    LV2_EXT "state#threadSafeRestore",
                                    LV2_EXT "resize-port#resize"};

#undef LV2_CORE
#undef LV2_EXT

bool isOneOf(const auto& features, QByteArrayView uri) {
  return std::ranges::any_of(features, [uri](const char* feature) { return uri == feature; });
}

QString text(const LilvNode* node) {
  if (node == nullptr || !lilv_node_is_string(node)) return {};
  return QString::fromUtf8(lilv_node_as_string(node)).simplified().left(kMaxText);
}

QString host(const LilvNode* node) {
  if (node == nullptr || !lilv_node_is_uri(node)) return {};
  return QUrl(QString::fromUtf8(lilv_node_as_uri(node))).host().left(kMaxText);
}

quint32 code(const QByteArray& identity) {
  return qFromBigEndian<quint32>(
      QCryptographicHash::hash(identity, QCryptographicHash::Sha256).constData());
}

bool binaryExists(const LilvPlugin& plugin) {
  const LilvNode* library = lilv_plugin_get_library_uri(&plugin);
  if (library == nullptr) return false;
  struct Free {
    void operator()(char* path) const noexcept { lilv_free(path); }
  };
  const std::unique_ptr<char, Free> path(lilv_node_get_path(library, nullptr));
  return path && QFileInfo(QFile::decodeName(path.get())).isFile();
}

}  // namespace

EffectReader::EffectReader(LilvWorld& world)
    : world_(world),
      audioPort_(uri(LILV_URI_AUDIO_PORT)),
      inputPort_(uri(LILV_URI_INPUT_PORT)),
      outputPort_(uri(LILV_URI_OUTPUT_PORT)),
      type_(uri(LILV_NS_RDF "type")),
      maintainer_(uri(LILV_NS_DOAP "maintainer")),
      replaces_(uri("http://purl.org/dc/terms/replaces")),
      minorVersion_(uri(LILV_NS_LV2 "minorVersion")),
      microVersion_(uri(LILV_NS_LV2 "microVersion")),
      hardRealTime_(uri(LILV_NS_LV2 "hardRTCapable")) {}

LilvPointer<LilvNode> EffectReader::uri(const char* text) const {
  return LilvPointer<LilvNode>(lilv_new_uri(&world_, text));
}

std::optional<AudioComponent> EffectReader::read(const LilvPlugin& plugin) const {
  if (!isEffect(plugin)) return std::nullopt;
  const LilvNode* pluginUri = lilv_plugin_get_uri(&plugin);
  AudioComponent component;
  component.name = text(LilvPointer<LilvNode>(lilv_plugin_get_name(&plugin)).get());
  if (component.name.isEmpty())
    component.name = QString::fromUtf8(lilv_node_as_string(pluginUri)).left(kMaxText);
  component.manufacturerName = manufacturer(plugin);
  component.versionString =
      versionNumber(plugin, *minorVersion_) + u'.' + versionNumber(plugin, *microVersion_);
  component.typeName = text(lilv_plugin_class_get_label(lilv_plugin_get_class(&plugin)));
  component.manufacturer = code(component.manufacturerName.toUtf8());
  component.subType = code(lilv_node_as_string(pluginUri));
  component.passesValidation = lilv_plugin_verify(&plugin) && binaryExists(plugin);
  component.sandboxSafe = lilv_plugin_has_feature(&plugin, hardRealTime_.get());
  readFeatures(plugin, component);
  return component;
}

bool EffectReader::isEffect(const LilvPlugin& plugin) const {
  if (makesSoundItself(plugin)) return false;
  if (lilv_world_ask(&world_, nullptr, replaces_.get(), lilv_plugin_get_uri(&plugin))) return false;
  const auto audioPorts = [&](const LilvNode* direction) {
    return lilv_plugin_get_num_ports_of_class(&plugin, audioPort_.get(), direction, nullptr);
  };
  return audioPorts(inputPort_.get()) > 0 && audioPorts(outputPort_.get()) > 0;
}

bool EffectReader::makesSoundItself(const LilvPlugin& plugin) const {
  const LilvPluginClasses* known = lilv_world_get_plugin_classes(&world_);
  const LilvPointer<LilvNodes> types(lilv_plugin_get_value(&plugin, type_.get()));
  LILV_FOREACH(nodes, i, types.get()) {
    const LilvNode* type = lilv_nodes_get(types.get(), i);
    for (int depth = 0; type != nullptr && lilv_node_is_uri(type) && depth < kMaxClassDepth;
         ++depth) {
      const QByteArrayView name = lilv_node_as_uri(type);
      if (name == LILV_NS_LV2 "InstrumentPlugin" || name == LILV_NS_LV2 "GeneratorPlugin")
        return true;
      const LilvPluginClass* described = lilv_plugin_classes_get_by_uri(known, type);
      type = described != nullptr ? lilv_plugin_class_get_parent_uri(described) : nullptr;
    }
  }
  return false;
}

QString EffectReader::manufacturer(const LilvPlugin& plugin) const {
  const LilvPointer<LilvNode> author(lilv_plugin_get_author_name(&plugin));
  const LilvPointer<LilvNodes> makers(lilv_plugin_get_value(&plugin, maintainer_.get()));
  const LilvPointer<LilvNode> page(lilv_plugin_get_author_homepage(&plugin));
  const LilvPointer<LilvNode> project(lilv_plugin_get_project(&plugin));
  QString name = text(author.get());
  if (name.isEmpty() && lilv_nodes_size(makers.get()) > 0)
    name = host(lilv_nodes_get_first(makers.get()));
  if (name.isEmpty()) name = host(page.get());
  if (name.isEmpty()) name = host(project.get());
  if (name.isEmpty()) name = host(lilv_plugin_get_uri(&plugin));
  return name;
}

QString EffectReader::versionNumber(const LilvPlugin& plugin, const LilvNode& predicate) const {
  const LilvPointer<LilvNodes> values(lilv_plugin_get_value(&plugin, &predicate));
  // Digits only, however many; the standard takes what is missing for 0.
  if (lilv_nodes_size(values.get()) == 0) return QStringLiteral("0");
  const auto number = QString::fromUtf8(lilv_node_as_string(lilv_nodes_get_first(values.get())));
  bool isNumber = false;
  return QString::number(number.toUInt(&isNumber));
}

void EffectReader::readFeatures(const LilvPlugin& plugin, AudioComponent& component) const {
  const LilvPointer<LilvNodes> required(lilv_plugin_get_required_features(&plugin));
  LILV_FOREACH(nodes, i, required.get()) {
    const QByteArrayView feature = lilv_node_as_string(lilv_nodes_get(required.get(), i));
    if (isOneOf(kConfinedFeatures, feature)) continue;
    component.sandboxSafe = false;
    if (!isOneOf(kOtherFeatures, feature)) component.passesValidation = false;
  }
}

}  // namespace orvex
