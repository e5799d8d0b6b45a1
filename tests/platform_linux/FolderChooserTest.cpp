#include "base/FileUrl.h"
#include "platform/FolderAccess.h"
#include "platform/FolderChooser.h"
#include "platform/Platform.h"
#include "platform/linux/SessionBus.h"
#include "support/PrivateSession.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

namespace {

// A dialog on the portal's side; it can be closed from the other.
class Dialog final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

 public:
  bool closed = false;

 public Q_SLOTS:
  void Close() { closed = true; }
};

// A portal on the session's bus that keeps to a script.
class Portal final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
  Q_PROPERTY(uint version MEMBER version)

 public:
  Portal() {
    EXPECT_TRUE(bus.connection().registerObject(
        u"/org/freedesktop/portal/desktop"_qs, this,
        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties));
    EXPECT_TRUE(bus.connection().registerService(u"org.freedesktop.portal.Desktop"_qs));
  }
  // The connection's thread looks at what it still has when the connection ends, which may be
  // later.
  ~Portal() override {
    bus.connection().unregisterObject(u"/org/freedesktop/portal/desktop"_qs,
                                      QDBusConnection::UnregisterTree);
  }

  void respond(const QVariantList& arguments) { respond(arguments, bus); }
  void respond(const QVariantList& arguments, SessionBus& from) {
    QDBusMessage message =
        QDBusMessage::createSignal(request, u"org.freedesktop.portal.Request"_qs, u"Response"_qs);
    message.setArguments(arguments);
    EXPECT_TRUE(from.connection().send(message));
  }

  SessionBus bus;
  uint version = 3;
  QString request;
  QString title;
  QVariantMap options;
  Dialog dialog;

 public Q_SLOTS:
  QDBusObjectPath OpenFile(const QString&, const QString& text, const QVariantMap& given,
                           const QDBusMessage& message) {
    title = text;
    options = given;
    request = u"/org/freedesktop/portal/desktop/request/%1/%2"_qs.arg(
        message.service().mid(1).replace(u'.', u'_'), given.value(u"handle_token"_qs).toString());
    EXPECT_TRUE(bus.connection().registerObject(request, &dialog, QDBusConnection::ExportAllSlots));
    return QDBusObjectPath(request);
  }
};

struct Toolkit final : FolderChooser {
  void choose(const QString& title, const QString& prompt, const QUrl& start,
              Chosen chosen) override {
    asked.append(title + u'|' + prompt + u'|' + QString::fromLatin1(start.toEncoded()));
    chosen(fileUrl("/from/the/toolkit"));
  }
  QStringList asked;
};

struct FolderChoosing : PrivateSession {
  FolderChoosing() { platform_->setFallbackChooser(&toolkit_); }
  void choose() {
    platform_->folderAccess().chooseFolder(
        u"LUT klasörünü seç"_qs, u"Seç"_qs, start_, [this](const std::optional<QUrl>& url) {
          answers_.append(url ? QString::fromUtf8(url->toEncoded()) : u"nothing"_qs);
        });
    EXPECT_TRUE(answers_.isEmpty()) << "answered before it returned";
  }
  [[nodiscard]] QString answer() {
    EXPECT_TRUE(waitUntil([this] { return !answers_.isEmpty(); }));
    return answers_.isEmpty() ? QString() : answers_.takeFirst();
  }
  [[nodiscard]] static QVariantMap uris(const QStringList& list) {
    return {{u"uris"_qs, list}, {u"writable"_qs, true}};
  }
  [[nodiscard]] static bool asked(const Portal& portal) {
    return waitUntil([&] { return !portal.request.isEmpty(); });
  }
  // Long enough for anything under way on the bus to arrive.
  static void settle() {
    std::ignore = waitUntil([] { return false; }, 100ms);
  }

  std::unique_ptr<Platform> platform_ = makePlatform();
  Toolkit toolkit_;
  const QUrl start_ = fileUrl("/a\xFF b");
  QStringList answers_;
};

TEST_F(FolderChoosing, ThePortalIsAskedForOneFolderInItsWords) {
  Portal portal;
  choose();
  ASSERT_TRUE(asked(portal));
  EXPECT_EQ(portal.title, u"LUT klasörünü seç");
  portal.options.remove(u"handle_token"_qs);
  EXPECT_EQ(portal.options, (QVariantMap{{u"accept_label"_qs, u"Seç"_qs},
                                         {u"modal"_qs, true},
                                         {u"multiple"_qs, false},
                                         {u"directory"_qs, true},
                                         {u"current_folder"_qs, QByteArray("/a\xFF b\0", 6)}}));
  // Only the portal's own word counts.
  SessionBus stranger;
  portal.respond({0U, uris({u"file:///etc"_qs})}, stranger);
  settle();
  EXPECT_TRUE(answers_.isEmpty());
  const QString folder = u"file:///home/a%20b/%C3%BC%FF"_qs;
  for (int i = 0; i < 2; ++i) portal.respond({0U, uris({folder + u'/'})});
  settle();
  EXPECT_EQ(answers_, QStringList{folder});
  EXPECT_TRUE(toolkit_.asked.isEmpty());
  EXPECT_FALSE(portal.dialog.closed);
}

TEST_F(FolderChoosing, WhateverElseThePortalAnswersIsNoFolder) {
  const QString folder = u"file:///tmp"_qs;
  for (const QVariantList& response :
       {QVariantList{0, uris({folder})}, QVariantList{1U, uris({folder})},
        QVariantList{0U, uris({folder, folder})},
        QVariantList{0U, uris({u"file://elsewhere/tmp"_qs})}}) {
    Portal portal;
    choose();
    ASSERT_TRUE(asked(portal));
    portal.respond(response);
    EXPECT_EQ(answer(), u"nothing");
  }
  EXPECT_TRUE(toolkit_.asked.isEmpty()) << "the user has answered already";
}

TEST_F(FolderChoosing, WithoutAUsablePortalTheToolkitIsAsked) {
  const auto toolkitAnswers = [this] {
    choose();
    EXPECT_EQ(answer(), u"file:///from/the/toolkit");
    EXPECT_EQ(toolkit_.asked.takeFirst(), u"LUT klasörünü seç|Seç|file:///a%FF%20b");
  };
  toolkitAnswers();
  Portal portal;
  portal.version = 2;  // Without folders.
  toolkitAnswers();
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
  platform_ = makePlatform();
  platform_->setFallbackChooser(&toolkit_);
  toolkitAnswers();
}

TEST_F(FolderChoosing, TwoQuestionsGetTheirOwnAnswersAlsoWhenThePortalGoes) {
  {
    Portal portal;
    choose();
    ASSERT_TRUE(asked(portal));
    portal.request.clear();
    choose();
    ASSERT_TRUE(asked(portal));
    portal.respond({0U, uris({u"file:///second"_qs})});
    EXPECT_EQ(answer(), u"file:///second");
  }
  EXPECT_EQ(answer(), u"nothing");
  EXPECT_TRUE(toolkit_.asked.isEmpty());
}

TEST_F(FolderChoosing, NothingIsAnsweredOnceThePanelIsGone) {
  Portal portal;
  choose();
  ASSERT_TRUE(asked(portal));
  platform_.reset();
  EXPECT_TRUE(waitUntil([&] { return portal.dialog.closed; })) << "its dialog stays behind";
  EXPECT_TRUE(answers_.isEmpty());
}

}  // namespace

#include "FolderChooserTest.moc"
