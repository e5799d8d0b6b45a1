#include "base/FileUrl.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "platform/linux/SessionBus.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QDBusConnection>
#include <QUrl>

#include <fcntl.h>
#include <unistd.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

class FileManager final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

 public:
  FileManager() {
    EXPECT_TRUE(bus.connection().registerObject(u"/org/freedesktop/FileManager1"_s, this,
                                                QDBusConnection::ExportAllSlots));
    EXPECT_TRUE(bus.connection().registerService(u"org.freedesktop.FileManager1"_s));
  }

  SessionBus bus;
  QStringList shown;

 public Q_SLOTS:
  void ShowItems(const QStringList& uris, const QString&) { shown += uris; }
};

class Revealing : public PrivateSession {
 protected:
  // The error, "" when the file was shown.
  QString reveal(const QByteArray& path) {
    std::optional<QString> outcome;
    platform_->workspace().reveal(fileUrl(path), [&](const std::expected<void, QString>& revealed) {
      outcome = revealed ? QString() : revealed.error();
    });
    EXPECT_FALSE(outcome) << "answered before it returned";
    EXPECT_TRUE(waitUntil([&] { return outcome.has_value(); }));
    return outcome.value_or(u"no answer"_s);
  }
  QByteArray makeFile(const QByteArray& name) {
    const QByteArray path = QFile::encodeName(home(u"data/"_s)) + name;
    const int file = ::creat(path.constData(), 0600);
    EXPECT_GE(file, 0);
    ::close(file);
    return path;
  }

  const std::unique_ptr<Platform> platform_ = makePlatform();
};

TEST_F(Revealing, TheFileManagerIsToldTheRawNameEscaped) {
  FileManager manager;
  const QByteArray path = makeFile("I\xFFk #1?%.moti");
  EXPECT_EQ(reveal(path), QString());
  ASSERT_EQ(manager.shown.size(), 1);
  EXPECT_TRUE(manager.shown[0].endsWith(u"/I%FFk%20%231%3F%25.moti"_s))
      << qPrintable(manager.shown[0]);
  const QString gone = reveal(path + "x");
  EXPECT_TRUE(gone.contains(u"artık yerinde değil"_s)) << qPrintable(gone);
  EXPECT_EQ(manager.shown.size(), 1);
}

TEST_F(Revealing, WithoutAFileManagerOnTheBusTheFolderIsOpened) {
  const QByteArray path = makeFile("a b.moti");
  EXPECT_TRUE(reveal(path).contains(u"dosya yöneticisi bulunamadı"_s));

  std::ignore = script(
      u"browse"_s,
      "printf %s \"$1\" > \"$HOME/opened.part\"\nmv \"$HOME/opened.part\" \"$HOME/opened\"\n");
  QDir().mkpath(home(u"data/applications"_s));
  QFile entry(home(u"data/applications/files.desktop"_s));
  ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
  entry.write("[Desktop Entry]\nType=Application\nName=Files\nMimeType=inode/directory;\nExec=" +
              QFile::encodeName(home(u"browse"_s)) + " %u\n");
  entry.close();
  QFile chosen(home(u"config/mimeapps.list"_s));
  ASSERT_TRUE(chosen.open(QIODevice::WriteOnly));
  chosen.write("[Default Applications]\ninode/directory=files.desktop\n");
  chosen.close();
  // GIO's watcher of desktop entries lives on a thread of its own.
  ASSERT_TRUE(waitUntil([&] { return reveal(path).isEmpty(); }));
  ASSERT_TRUE(waitUntil([&] { return QFile::exists(home(u"opened"_s)); }));
  EXPECT_EQ(contents(home(u"opened"_s)).toStdString(), home(u"data"_s).toStdString());
}

}  // namespace

#include "RevealTest.moc"
