#include "platform/linux/BusNotifications.h"

#include "platform/SystemLog.h"
#include "platform/linux/SessionBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QObject>

namespace orvex {
namespace {

QVariant plain(const QVariant& value);

// The bus allows 64 levels of containers and variants, so the recursion is bounded.
QVariant demarshalled(const QDBusArgument& argument) {
  switch (argument.currentType()) {
    case QDBusArgument::ArrayType: {
      QVariantList list;
      argument.beginArray();
      while (!argument.atEnd()) list.append(plain(argument.asVariant()));
      argument.endArray();
      return list;
    }
    case QDBusArgument::StructureType: {
      QVariantList list;
      argument.beginStructure();
      while (!argument.atEnd()) list.append(plain(argument.asVariant()));
      argument.endStructure();
      return list;
    }
    case QDBusArgument::MapType: {
      QVariantMap map;
      argument.beginMap();
      while (!argument.atEnd()) {
        argument.beginMapEntry();
        const QString key = plain(argument.asVariant()).toString();
        map.insert(key, plain(argument.asVariant()));
        argument.endMapEntry();
      }
      argument.endMap();
      return map;
    }
    default:
      return argument.asVariant();
  }
}

// The value without the wrappers of the bus; its type is the one it was sent with.
QVariant plain(const QVariant& value) {
  if (value.metaType() == QMetaType::fromType<QDBusVariant>())
    return plain(value.value<QDBusVariant>().variant());
  if (value.metaType() == QMetaType::fromType<QDBusArgument>())
    return demarshalled(value.value<QDBusArgument>());
  return value;
}

class Subscription final : public QObject, public DistributedNotifications::Token {
  Q_OBJECT

 public:
  explicit Subscription(DistributedNotifications::Handler handler) : handler_(std::move(handler)) {}

 public Q_SLOTS:
  void posted(const QDBusMessage& message) {
    // A copy, because the handler may end the subscription that holds it.
    const auto handler = handler_;
    handler(plain(message.arguments().at(1)).toMap());
  }

 private:
  const DistributedNotifications::Handler handler_;
};

}  // namespace

std::unique_ptr<DistributedNotifications::Token> BusNotifications::subscribe(const QString& name,
                                                                             Handler handler) {
  auto subscription = std::make_unique<Subscription>(std::move(handler));
  // The bus compares the name and Qt the signature, so what is not meant for this subscription does
  // not get as far as the main thread.
  const bool connected = bus_.connection().connect(
      QString(), QStringLiteral("/com/vantrelo/orvex/finalcut"),
      QStringLiteral("com.vantrelo.orvex.DistributedNotifications"), QStringLiteral("Posted"),
      {name}, QStringLiteral("sa{sv}"), subscription.get(), SLOT(posted(QDBusMessage)));
  if (!connected && !std::exchange(absenceLogged_, true)) {
    log_.line(QStringLiteral("[Vantrelo Orvex] no session bus, notifications cannot arrive: %1")
                  .arg(bus_.connection().lastError().message()));
  }
  return subscription;
}

}  // namespace orvex

#include "BusNotifications.moc"
