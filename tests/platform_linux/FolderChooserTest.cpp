#include "base/FileUrl.h"
#include "platform/FolderAccess.h"
#include "platform/FolderChooser.h"
#include "platform/Platform.h"
#include "platform/linux/SessionBus.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

using namespace orvex;

namespace {

const QString kService = u"org.freedesktop.portal.Desktop"_qs;
const QString kRequestInterface = u"org.freedesktop.portal.Request"_qs;

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
    EXPECT_TRUE(bus.connection().registerService(kService));
  }

  void respond(const QVariantList& arguments) { respond(bus, arguments); }
  void respond(SessionBus& from, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createSignal(request, kRequestInterface, u"Response"_qs);
    message.setArguments(arguments);
    EXPECT_TRUE(from.connection().send(message));
  }

  SessionBus bus;
  uint version = 3;
  // In place of the request's own path.
  QString oddPath;
  bool refuses = false;
  QString request;
  QString title;
  QVariantMap options;
  Dialog dialog;

 public Q_SLOTS:
  QDBusObjectPath OpenFile(const QString& parent, const QString& text, const QVariantMap& given,
                           const QDBusMessage& message) {
    EXPECT_EQ(parent, QString());
    title = text;
    options = given;
    request = u"/org/freedesktop/portal/desktop/request/%1/%2"_qs.arg(
        message.service().mid(1).replace(u'.', u'_'), given.value(u"handle_token"_qs).toString());
    if (refuses) {
      message.setDelayedReply(true);
      bus.connection().send(
          message.createErrorReply(u"org.freedesktop.portal.Error.Failed"_qs, u"no display"_qs));
      return QDBusObjectPath(request);
    }
    EXPECT_TRUE(bus.connection().registerObject(request, &dialog, QDBusConnection::ExportAllSlots));
    return QDBusObjectPath(oddPath.isEmpty() ? request : oddPath);
  }
};

class Toolkit final : public FolderChooser {
 public:
  void choose(const QString& title, const QString& prompt, Chosen chosen) override {
    asked.append(title + u'|' + prompt);
    chosen(fileUrl("/from/the/toolkit"));
  }
  QStringList asked;
};

class FolderChoosing : public PrivateSession {
 protected:
  void SetUp() override {
    PrivateSession::SetUp();
    platform_->setFolderChooser(&toolkit_);
  }
  void choose() {
    platform_->folderAccess().chooseFolder(
        u"LUT klasörünü seç"_qs, u"Seç"_qs, [this](const std::optional<QUrl>& url) {
          answers_.append(url ? QString::fromUtf8(url->toEncoded()) : u"nothing"_qs);
        });
    EXPECT_TRUE(answers_.isEmpty()) << "answered before it returned";
  }
  [[nodiscard]] bool answered() {
    return waitUntil([this] { return !answers_.isEmpty(); });
  }
  [[nodiscard]] static bool asked(const Portal& portal) {
    return waitUntil([&] { return !portal.request.isEmpty(); });
  }
  // Long enough for anything under way on the bus to arrive.
  static void settle() {
    std::ignore = waitUntil([] { return false; }, std::chrono::milliseconds(100));
  }

  std::unique_ptr<Platform> platform_ = makePlatform();
  Toolkit toolkit_;
  QStringList answers_;
};

const QString kUris = u"uris"_qs;

TEST_F(FolderChoosing, ThePortalIsAskedForOneFolderInItsWords) {
  Portal portal;
  choose();
  ASSERT_TRUE(asked(portal));
  EXPECT_EQ(portal.title, u"LUT klasörünü seç");
  portal.options.remove(u"handle_token"_qs);
  EXPECT_EQ(portal.options, (QVariantMap{{u"accept_label"_qs, u"Seç"_qs},
                                         {u"modal"_qs, true},
                                         {u"multiple"_qs, false},
                                         {u"directory"_qs, true}}));
  settle();
  EXPECT_TRUE(answers_.isEmpty()) << "an open dialog is no answer";
  const QVariantMap results{{kUris, QStringList{u"file:///home/a%20b/%C3%BC%FF/"_qs}},
                            {u"writable"_qs, true}};
  // Only the portal's own word counts.
  SessionBus stranger;
  portal.respond(stranger, {0U, QVariantMap{{kUris, QStringList{u"file:///etc"_qs}}}});
  settle();
  portal.respond({0U, results});
  portal.respond({0U, results});
  ASSERT_TRUE(answered());
  settle();
  EXPECT_EQ(answers_, QStringList{u"file:///home/a%20b/%C3%BC%FF"_qs});
  EXPECT_TRUE(toolkit_.asked.isEmpty());
  EXPECT_FALSE(portal.dialog.closed);
}

TEST_F(FolderChoosing, WhateverElseThePortalAnswersIsNoFolder) {
  const auto uris = [](const QStringList& list) { return QVariantMap{{kUris, list}}; };
  const QStringList folder{u"file:///tmp"_qs};
  QList<QVariantList> responses{{}, {0U, folder}, {0, uris(folder)}, {0U, QVariantMap{{kUris, 3}}}};
  for (const uint code : {1U, 7U}) responses.append({code, uris(folder)});
  for (const QStringList& list :
       {QStringList(), QStringList{folder[0], folder[0]}, QStringList{u"sftp://elsewhere/tmp"_qs},
        QStringList{u"file://elsewhere/tmp"_qs}, QStringList{u"file:///tmp%00"_qs},
        QStringList{u"/tmp"_qs}})
    responses.append({0U, uris(list)});
  for (qsizetype i = 0; i < responses.size(); ++i) {
    Portal portal;
    choose();
    ASSERT_TRUE(asked(portal)) << i;
    portal.respond(responses[i]);
    ASSERT_TRUE(answered()) << i;
    EXPECT_EQ(answers_.takeFirst(), u"nothing") << i;
  }
  EXPECT_TRUE(toolkit_.asked.isEmpty()) << "the user has answered already";
}

TEST_F(FolderChoosing, WithoutAUsablePortalTheToolkitIsAsked) {
  const auto toolkitAnswers = [this](const char* why) {
    choose();
    ASSERT_TRUE(answered()) << why;
    EXPECT_EQ(answers_.takeFirst(), u"file:///from/the/toolkit") << why;
    EXPECT_EQ(toolkit_.asked.takeFirst(), u"LUT klasörünü seç|Seç") << why;
  };
  toolkitAnswers("no portal");
  {
    Portal portal;
    portal.version = 2;
    toolkitAnswers("it knows no folders");
    EXPECT_TRUE(portal.request.isEmpty());
    portal.version = 3;
    portal.refuses = true;
    toolkitAnswers("it refuses");
  }
  {
    Portal portal;
    portal.oddPath = u"/elsewhere"_qs;
    toolkitAnswers("the request is not where it was asked to be");
    EXPECT_TRUE(waitUntil([&] { return portal.dialog.closed; }));
  }
  {
    SessionBus bare;
    ASSERT_TRUE(bare.connection().registerService(kService));
    toolkitAnswers("a portal without a file chooser");
  }
  platform_->setFolderChooser(nullptr);
  choose();
  ASSERT_TRUE(answered());
  EXPECT_EQ(answers_, QStringList{u"nothing"_qs});
}

TEST_F(FolderChoosing, TwoQuestionsGetTheirOwnAnswersAndNoneWhenThePortalGoes) {
  {
    Portal portal;
    choose();
    ASSERT_TRUE(asked(portal));
    const QString first = std::exchange(portal.request, QString());
    choose();
    ASSERT_TRUE(asked(portal));
    for (const QString& folder : {u"file:///second"_qs, u"file:///first"_qs}) {
      portal.respond({0U, QVariantMap{{kUris, QStringList{folder}}}});
      ASSERT_TRUE(answered());
      EXPECT_EQ(answers_.takeFirst(), folder);
      portal.request = first;
    }
    portal.request.clear();
    choose();
    ASSERT_TRUE(asked(portal));
  }
  ASSERT_TRUE(answered());
  EXPECT_EQ(answers_, QStringList{u"nothing"_qs});
  EXPECT_TRUE(toolkit_.asked.isEmpty());
}

TEST_F(FolderChoosing, NothingIsAnsweredOnceThePanelIsGone) {
  Portal portal;
  choose();
  platform_.reset();
  settle();
  EXPECT_TRUE(portal.request.isEmpty());

  platform_ = makePlatform();
  choose();
  ASSERT_TRUE(asked(portal));
  platform_.reset();
  EXPECT_TRUE(waitUntil([&] { return portal.dialog.closed; })) << "its dialog stays behind";
  EXPECT_TRUE(answers_.isEmpty());
}

}  // namespace

#include "FolderChooserTest.moc"
