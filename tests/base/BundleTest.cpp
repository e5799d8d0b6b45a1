#include "base/Bundle.h"
#include "base/FileDescriptor.h"
#include "support/TemporaryTree.h"

using namespace orvex;

namespace {

QByteArray info(const QByteArray& body) {
  return "<plist version=\"1.0\"><dict>" + body + "</dict></plist>";
}

const QString kName = QStringLiteral("CFBundleName");

QVariant nameOf(const TemporaryTree& tree, const QStringList& languages) {
  const FileDescriptor folder(::open(tree.root().constData(), O_RDONLY | O_DIRECTORY));
  return Bundle(QStringLiteral("x"), folder.get(), languages).localizedInfoValue(kName);
}

TEST(Bundle, FindsItsInformationWhereItIsCustomary) {
  const QByteArray name = info("<key>CFBundleName</key><string>N</string>");
  for (const char* place : {"Contents/Info.plist", "Resources/Info.plist", "Info.plist"}) {
    const TemporaryTree tree;
    tree.file(place, name);
    EXPECT_EQ(nameOf(tree, {}), QStringLiteral("N")) << place;
  }
  const TemporaryTree framework;
  framework.file("Versions/A/Resources/Info.plist", name);
  framework.link("Versions/Current", "A");
  framework.link("Resources", "Versions/Current/Resources");
  EXPECT_EQ(nameOf(framework, {}), QStringLiteral("N"));
  const TemporaryTree plain;
  EXPECT_FALSE(nameOf(plain, {}).isValid());
  const TemporaryTree waiting;
  waiting.folder("Contents");
  waiting.fifo("Contents/Info.plist");
  EXPECT_FALSE(nameOf(waiting, {}).isValid());
}

TEST(Bundle, SpeaksTheUsersLanguage) {
  const TemporaryTree tree;
  tree.file("Contents/Info.plist", info("<key>CFBundleName</key><string>Plain</string>"
                                        "<key>CFBundleDevelopmentRegion</key><string>en</string>"));
  const QByteArray resources = "Contents/Resources/";
  tree.file(resources + "tr.lproj/InfoPlist.strings", "CFBundleName = \"Türkçe\";");
  tree.file(resources + "pt_BR.lproj/InfoPlist.strings", "CFBundleName = Brasil;");
  tree.file(resources + "English.lproj/InfoPlist.strings", "CFBundleName = English;");
  tree.file(resources + "fr.lproj/Localizable.strings", "CFBundleName = Autre;");
  tree.file(resources + "de.lproj/InfoPlist.strings", "Other = x;");
  const struct {
    QStringList languages;
    const char16_t* name;
  } rows[]{
      {{QStringLiteral("tr-TR"), QStringLiteral("en")}, u"Türkçe"},
      {{QStringLiteral("pt-BR")}, u"Brasil"},
      // French is not there; then comes the next one.
      {{QStringLiteral("fr-FR"), QStringLiteral("tr")}, u"Türkçe"},
      // German is, but leaves this text as it was.
      {{QStringLiteral("de")}, u"Plain"},
      // None of the user's: the language it was developed in.
      {{QStringLiteral("ja")}, u"English"},
      {{QStringLiteral("../de")}, u"English"},
      {{}, u"English"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(nameOf(tree, row.languages), QString::fromUtf16(row.name))
        << qPrintable(row.languages.join(u' '));
}

}  // namespace
