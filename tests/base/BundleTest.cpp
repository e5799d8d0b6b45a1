#include "base/Bundle.h"
#include "base/FileDescriptor.h"

namespace {

QByteArray info(const QByteArray& body) {
  return "<plist version=\"1.0\"><dict>" + body + "</dict></plist>";
}

const QString kName = u"CFBundleName"_qs;

QVariant nameOf(const TemporaryTree& tree, const QStringList& languages) {
  const FileDescriptor folder(::open(tree.root().constData(), O_RDONLY | O_DIRECTORY));
  return Bundle(u"x"_qs, folder.get(), languages).localizedInfoValue(kName);
}

TEST(Bundle, FindsItsInformationWhereItIsCustomary) {
  const QByteArray name = info("<key>CFBundleName</key><string>N</string>");
  for (const char* place : {"Resources/Info.plist", "Info.plist"}) {
    const TemporaryTree tree;
    tree.file(place, name);
    EXPECT_EQ(nameOf(tree, {}), u"N"_qs) << place;
  }
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
  const std::pair<QStringList, const char16_t*> rows[]{
      {{u"tr-TR"_qs, u"en"_qs}, u"Türkçe"},
      {{u"pt-BR"_qs}, u"Brasil"},
      {{u"fr-FR"_qs, u"tr"_qs}, u"Türkçe"},
      // German is, but leaves this text as it was.
      {{u"de"_qs}, u"Plain"},
      // None of the user's: the language it was developed in.
      {{u"../de"_qs}, u"English"},
      {{}, u"English"},
  };
  for (const auto& [languages, name] : rows)
    EXPECT_EQ(nameOf(tree, languages), QString::fromUtf16(name)) << languages.join(u' ');
}

}  // namespace
