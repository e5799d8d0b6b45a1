#include "platform/linux/PortalRequest.h"

#include "base/FileName.h"
#include "base/FileUrl.h"
#include "platform/linux/SessionBus.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QUuid>

#include <chrono>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// Starting a portal takes a moment; one that never answers must not keep the user waiting.
constexpr std::chrono::milliseconds kVersionLimit = 5s;
// The answer to the request itself comes before the user sees anything.
constexpr std::chrono::milliseconds kOpenLimit = 10s;
// The first version whose chooser knows folders; older ones would ask for a file.
constexpr uint kFirstVersion = 3;

QString service() {
  return QStringLiteral("org.freedesktop.portal.Desktop");
}
QString chooserInterface() {
  return QStringLiteral("org.freedesktop.portal.FileChooser");
}
QString requestInterface() {
  return QStringLiteral("org.freedesktop.portal.Request");
}

QDBusMessage portalCall(const QString& interface, const QString& method) {
  return QDBusMessage::createMethodCall(
      service(), QStringLiteral("/org/freedesktop/portal/desktop"), interface, method);
}

// Where the portal puts the request that this connection makes under `token`.
QString requestPath(const QString& connection, const QString& token) {
  return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
      .arg(connection.mid(1).replace(u'.', u'_'), token);
}

// The one folder of a response's results; nothing when they hold anything else.
std::optional<QUrl> onlyFolder(const QVariantMap& results) {
  const QVariant uris = results.value(QStringLiteral("uris"));
  if (uris.metaType() != QMetaType::fromType<QStringList>()) return std::nullopt;
  const QStringList list = uris.toStringList();
  if (list.size() != 1) return std::nullopt;
  const QByteArray path = withoutEndSlashes(filePath(QUrl(list.constFirst(), QUrl::StrictMode)));
  if (path.isEmpty()) return std::nullopt;
  return fileUrl(path);
}

}  // namespace

PortalRequest::PortalRequest(SessionBus& bus, QString title, QString prompt, const QUrl& start,
                             Outcome outcome, QObject* parent)
    : QObject(parent),
      bus_(bus),
      title_(std::move(title)),
      prompt_(std::move(prompt)),
      start_(start),
      outcome_(std::move(outcome)),
      token_(QStringLiteral("orvex") + QUuid::createUuid().toString(QUuid::Id128)),
      path_(requestPath(bus_.connection().baseService(), token_)),
      portal_(service(), bus_.connection(), QDBusServiceWatcher::WatchForUnregistration) {
  // Also without a bus: the call then ends with the error that says so.
  QDBusMessage call =
      portalCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  call.setArguments({chooserInterface(), QStringLiteral("version")});
  then(call, &PortalRequest::checkVersion, kVersionLimit);
}

PortalRequest::~PortalRequest() {
  if (!dialogOpen_) return;
  QDBusMessage close =
      QDBusMessage::createMethodCall(service(), path_, requestInterface(), QStringLiteral("Close"));
  close.setAutoStartService(false);
  bus_.connection().send(close);
}

void PortalRequest::then(const QDBusMessage& call,
                         void (PortalRequest::*next)(const QDBusMessage& reply),
                         std::chrono::milliseconds limit) {
  bus_.ask(call, limit, *this, [this, next](const QDBusMessage& reply) {
    if (outcome_) (this->*next)(reply);
  });
}

void PortalRequest::checkVersion(const QDBusMessage& reply) {
  if (reply.type() != QDBusMessage::ReplyMessage) return giveUp(reply.errorMessage());
  const QVariant version = reply.arguments().value(0).value<QDBusVariant>().variant();
  if (version.metaType() != QMetaType::fromType<uint>() || version.toUInt() < kFirstVersion)
    return giveUp(QStringLiteral("version %1 knows no folders").arg(version.toString()));
  open();
}

void PortalRequest::open() {
  // Before the call, so that no response can come too early; from the portal alone, because any
  // process can send signals from this path.
  const bool listening =
      bus_.connection().connect(service(), path_, requestInterface(), QStringLiteral("Response"),
                                this, SLOT(responded(QDBusMessage)));
  if (!listening) return giveUp(bus_.connection().lastError().message());
  connect(&portal_, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
    dialogOpen_ = false;
    if (outcome_) end(std::nullopt);
  });
  QDBusMessage call = portalCall(chooserInterface(), QStringLiteral("OpenFile"));
  QVariantMap options{{QStringLiteral("handle_token"), token_},
                      {QStringLiteral("accept_label"), prompt_},
                      {QStringLiteral("modal"), true},
                      {QStringLiteral("multiple"), false},
                      {QStringLiteral("directory"), true}};
  // Raw bytes, with the zero that ends them.
  if (const QByteArray path = filePath(start_); !path.isEmpty())
    options.insert(QStringLiteral("current_folder"), path + '\0');
  call.setArguments({QString(), title_, options});
  dialogOpen_ = true;
  then(call, &PortalRequest::opened, kOpenLimit);
}

void PortalRequest::opened(const QDBusMessage& reply) {
  if (reply.type() == QDBusMessage::ReplyMessage &&
      reply.arguments().value(0).value<QDBusObjectPath>().path() == path_)
    return;
  giveUp(reply.type() == QDBusMessage::ReplyMessage ? QStringLiteral("the request has another path")
                                                    : reply.errorMessage());
}

void PortalRequest::responded(const QDBusMessage& message) {
  if (!outcome_) return;
  dialogOpen_ = false;
  constexpr uint kAccepted = 0;
  const QVariantList arguments = message.arguments();
  if (message.signature() != u"ua{sv}" || arguments.value(0).toUInt() != kAccepted)
    return end(std::nullopt);
  end(onlyFolder(qdbus_cast<QVariantMap>(arguments.value(1))));
}

void PortalRequest::end(const std::optional<QUrl>& folder) {
  deleteLater();
  // The callback may delete this through its owner.
  std::exchange(outcome_, std::nullopt)->ended(folder);
}

void PortalRequest::giveUp(const QString& reason) {
  deleteLater();
  std::exchange(outcome_, std::nullopt)->unavailable(reason);
}

}  // namespace orvex
