#include "platform/DistributedNotifications.h"
#include "platform/Platform.h"
#include "platform/linux/SessionBus.h"
#include "support/PrivateSession.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>

namespace {

const QString kName = u"com.vantrelo.orvex.finalcut.panel-size"_s;
const QString kWidth = u"width"_s;
const QString kHeight = u"height"_s;

struct Notifications : PrivateSession {
  void post(const QVariantList& arguments) {
    QDBusMessage message =
        QDBusMessage::createSignal(u"/com/vantrelo/orvex/finalcut"_s,
                                   u"com.vantrelo.orvex.DistributedNotifications"_s, u"Posted"_s);
    message.setArguments(arguments);
    ASSERT_TRUE(sender_.connection().send(message));
  }

  [[nodiscard]] bool received(qsizetype count) {
    return waitUntil([&] { return received_.size() >= count; });
  }

  const std::unique_ptr<Platform> platform_ = makePlatform();
  SessionBus sender_;
  QList<QVariantMap> received_;
  const std::unique_ptr<DistributedNotifications::Token> token_ =
      platform_->notifications().subscribe(
          kName, [this](const QVariantMap& userInfo) { received_.append(userInfo); });
};

TEST_F(Notifications, ValuesKeepTheTypeTheyWereSentWith) {
  // Other names and other arguments are ignored.
  post({kName + u'x', QVariantMap{{kWidth, 1.0}}});
  post({kName});
  post({kName, QVariantMap{{kWidth, 2.0}}, 3});

  const auto variant = [](const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
  };
  const QVariantList list{1.5, u"x"_s};
  post({kName, QVariantMap{{kWidth, variant(variant(700.5))}, {kHeight, 900}, {u"list"_s, list}}});
  post({kName, QVariantMap{{u"map"_s, QVariantMap{{u"deep"_s, variant(u"7"_s)}}}}});
  ASSERT_TRUE(received(2));
  EXPECT_EQ(received_[0], (QVariantMap{{kWidth, 700.5}, {kHeight, 900}, {u"list"_s, list}}));
  EXPECT_EQ(received_[0].value(kHeight).typeId(), QMetaType::Int);
  EXPECT_EQ(received_[1], (QVariantMap{{u"map"_s, QVariantMap{{u"deep"_s, u"7"_s}}}}));
}

TEST_F(Notifications, AnEndedSubscriptionHearsNothingAlsoWhenItEndsItself) {
  int heard = 0;
  std::unique_ptr<DistributedNotifications::Token> once;
  once = platform_->notifications().subscribe(kName, [&](const QVariantMap&) {
    ++heard;
    once.reset();
  });
  for (int i = 0; i < 20; ++i) post({kName, QVariantMap{{kWidth, double(i)}}});
  ASSERT_TRUE(received(20));
  EXPECT_EQ(heard, 1);
}

// The command of docs/panel-size.md.
TEST_F(Notifications, AStockCommandSendsOne) {
  QStringList command =
      u"emit --session --object-path /com/vantrelo/orvex/finalcut --signal "
      "com.vantrelo.orvex.DistributedNotifications.Posted"_s.split(u' ');
  command << u"'%1'"_s.arg(kName) << u"{'width': <1280.0>, 'height': <900>}"_s;
  ASSERT_EQ(QProcess::execute(u"gdbus"_s, command), 0);
  ASSERT_TRUE(received(1));
  EXPECT_EQ(received_[0], (QVariantMap{{kWidth, 1280.0}, {kHeight, 900}}));
}

}  // namespace
