#include "base/Bundle.h"

#include "base/FileDescriptor.h"
#include "base/PropertyList.h"
#include "base/SmallFile.h"
#include "base/StringsFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <array>
#include <fcntl.h>

namespace orvex {
namespace {

// Where the information list of a bundle may lie, and its localized resources with it.
struct Layout {
  const char* info;
  const char* resources;
};
constexpr std::array kLayouts{Layout{"Contents/Info.plist", "Contents/Resources"},
                              Layout{"Resources/Info.plist", "Resources"},
                              Layout{"Info.plist", "."}};

FileDescriptor openFolder(int parent, const QByteArray& path) {
  return FileDescriptor(::openat(parent, path.constData(), kReadFolder));
}

// What the folder of a language's texts may be called: by its tag in two ways of writing, without
// the region behind the script ("zh-Hans"), by the language alone, or by the language's English
// name, as of old.
QStringList folderNames(const QString& tag) {
  const QString language = tag.section(u'-', 0, 0);
  QStringList names{tag, QString(tag).replace(u'-', u'_'), tag.section(u'-', 0, 1), language};
  if (const QLocale locale(language); locale.language() != QLocale::C)
    names.append(QLocale::languageToString(locale.language()));
  names.removeDuplicates();
  return names;
}

}  // namespace

QStringList Bundle::userLanguages() {
  return QLocale::system().uiLanguages();
}

Bundle::Bundle(const QString& path) : path_(path) {
  if (const FileDescriptor folder = openFolder(AT_FDCWD, QFile::encodeName(path)))
    read(folder.get(), userLanguages());
}

Bundle::Bundle(const QString& path, int folder, const QStringList& languages) : path_(path) {
  read(folder, languages);
}

const Bundle& Bundle::main() {
  static const Bundle bundle(
      QFileInfo(QCoreApplication::applicationDirPath() + QStringLiteral("/../.."))
          .canonicalFilePath());
  return bundle;
}

QVariant Bundle::localizedInfoValue(const QString& key) const {
  const auto text = texts_.find(key);
  return text != texts_.end() ? QVariant(*text) : infoValue(key);
}

void Bundle::read(int folder, const QStringList& languages) {
  for (const Layout& layout : kLayouts) {
    const auto bytes = readSmallFile(folder, layout.info, PropertyList::kMaximumBytes);
    if (!bytes) continue;
    if (const auto list = PropertyList::parse(*bytes)) info_ = list->toMap();
    if (const FileDescriptor resources = openFolder(folder, layout.resources))
      readTexts(resources.get(), languages);
    return;
  }
}

void Bundle::readTexts(int resources, QStringList languages) {
  languages.append(infoValue(QStringLiteral("CFBundleDevelopmentRegion")).toString());
  for (const QString& language : languages) {
    // The list could name a folder elsewhere.
    if (language.isEmpty() || language.contains(u'/')) continue;
    for (const QString& name : folderNames(language)) {
      const auto bytes = readSmallFile(
          resources, QFile::encodeName(name + QStringLiteral(".lproj/InfoPlist.strings")),
          PropertyList::kMaximumBytes);
      if (!bytes) continue;
      if (const auto texts = StringsFile::parse(*bytes)) texts_ = *texts;
      return;
    }
  }
}

}  // namespace orvex
