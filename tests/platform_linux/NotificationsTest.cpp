#include "platform/DistributedNotifications.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"
#include "platform/linux/BusNotifications.h"
#include "platform/linux/SessionBus.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>

#include <cmath>
#include <limits>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

const QString kName = u"com.vantrelo.orvex.finalcut.panel-size"_s;
const QString kWidth = u"width"_s;
const QString kHeight = u"height"_s;

class Notifications : public PrivateSession {
 protected:
  void SetUp() override {
    PrivateSession::SetUp();
    token_ = platform_->notifications().subscribe(
        kName, [this](const QVariantMap& userInfo) { received_.append(userInfo); });
  }

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
  std::unique_ptr<DistributedNotifications::Token> token_;
};

TEST_F(Notifications, ValuesKeepTheTypeTheyWereSentWith) {
  // Other names and other arguments are ignored.
  post({kName + u'x', QVariantMap{{kWidth, 1.0}}});
  post({});
  post({kName});
  post({kName, u"width"_s});
  post({kName, QVariantMap{{kWidth, 2.0}}, 3});
  post({QVariantMap{{kWidth, 4.0}}, kName});

  const auto variant = [](const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
  };
  const QVariantList list{1.5, u"x"_s};
  const struct {
    QVariantMap sent;
    QVariantMap expected = sent;
  } rows[] = {
      {{{kWidth, 700.5}, {kHeight, 900}}},
      {{{kWidth, u"1200"_s}, {kHeight, true}}},
      {{{kWidth, variant(variant(700.5))}, {kHeight, list}}, {{kWidth, 700.5}, {kHeight, list}}},
      {{{kWidth, QVariantMap{{u"deep"_s, variant(1.0)}}}},
       {{kWidth, QVariantMap{{u"deep"_s, 1.0}}}}},
      {{{kHeight, QStringList{u"a"_s}}}},
      {{{kHeight, std::numeric_limits<double>::infinity()}}},
      {},
  };
  for (const auto& row : rows) post({kName, row.sent});
  post({kName, QVariantMap{{kWidth, std::nan("")}}});
  constexpr qsizetype kRows = std::size(rows);
  ASSERT_TRUE(received(kRows + 1));
  for (qsizetype i = 0; i < kRows; ++i) {
    EXPECT_EQ(received_[i], rows[i].expected) << i;
    for (const QString& key : rows[i].expected.keys())
      EXPECT_EQ(received_[i].value(key).typeId(), rows[i].expected.value(key).typeId()) << i;
  }
  EXPECT_EQ(received_[kRows].value(kWidth).typeId(), QMetaType::Double);
  EXPECT_TRUE(std::isnan(received_[kRows].value(kWidth).toDouble()));
}

TEST_F(Notifications, AnEndedSubscriptionHearsNothingAlsoWhenItEndsItself) {
  int heard = 0;
  token_ = platform_->notifications().subscribe(kName, [&](const QVariantMap&) {
    ++heard;
    token_.reset();
  });
  QList<QVariantMap> others;
  const auto other = platform_->notifications().subscribe(
      kName, [&](const QVariantMap& userInfo) { others.append(userInfo); });
  for (int i = 0; i < 20; ++i) post({kName, QVariantMap{{kWidth, double(i)}}});
  ASSERT_TRUE(waitUntil([&] { return others.size() == 20; }));
  EXPECT_EQ(heard, 1);
  EXPECT_TRUE(received_.isEmpty());
  EXPECT_EQ(others.last(), (QVariantMap{{kWidth, 19.0}}));
}

// The command of docs/panel-size.md.
TEST_F(Notifications, AStockCommandSendsOne) {
  QStringList command =
      u"emit --session --object-path /com/vantrelo/orvex/finalcut --signal "
      "com.vantrelo.orvex.DistributedNotifications.Posted"_s.split(u' ');
  command << u"'%1'"_s.arg(kName) << u"{'width': <1280.0>, 'height': <900>}"_s;
  ASSERT_EQ(QProcess::execute(u"gdbus"_s, command), 0);
  ASSERT_TRUE(received(1));
  EXPECT_EQ(received_[0].value(kWidth), QVariant(1280.0));
  EXPECT_EQ(received_[0].value(kHeight).typeId(), QMetaType::Int);
}

// In a process of its own, because the bus's address is read once for all.
TEST(NotificationsDeathTest, WithoutABusSubscribingIsSaidOnceAndHarmless) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  struct Lines final : SystemLog {
    void line(const QString& text) override { std::fprintf(stderr, "<%s>", qPrintable(text)); }
  };
  EXPECT_EXIT(
      {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        Lines log;
        SessionBus bus;
        BusNotifications notifications(bus, log);
        const auto first = notifications.subscribe(kName, [](const QVariantMap&) {});
        const auto second = notifications.subscribe(kName, [](const QVariantMap&) {});
        std::_Exit(first && second ? 0 : 1);
      },
      testing::ExitedWithCode(0), "^<.Vantrelo Orvex. no session bus[^<]*$");
}

}  // namespace
