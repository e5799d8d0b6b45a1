#include "platform/linux/GioWorkspace.h"

#include "base/Bundle.h"
#include "base/FileDescriptor.h"
#include "base/FileUrl.h"
#include "platform/linux/GlibPointers.h"
#include "platform/linux/RevealRequest.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QUrl>

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <unistd.h>

namespace orvex {
namespace {

std::expected<void, QString> start(const QUrl& application) {
  const QString folder = QFile::decodeName(filePath(application));
  const QVariant name = Bundle(folder).infoValue(QStringLiteral("CFBundleExecutable"));
  // The list could name a program elsewhere.
  if (folder.isEmpty() || name.typeId() != QMetaType::QString || name.toString().isEmpty() ||
      name.toString().contains(u'/'))
    return std::unexpected(QStringLiteral("%1 bir uygulama değil. Uygulamayı yeniden kur.")
                               .arg(application.toDisplayString(QUrl::PreferLocalFile)));
  // Started by a process of its own that is gone at once, so that nothing is left to be waited for.
  // Whoever reads what this program prints is not to hear the application.
  QProcess process;
  process.setProgram(folder + QStringLiteral("/Contents/MacOS/") + name.toString());
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  if (process.startDetached()) return {};
  return std::unexpected(
      QStringLiteral("%1 başlatılamadı. Dosyanın var ve çalıştırılabilir olduğunu denetle.")
          .arg(process.program()));
}

bool openWith(GAppInfo* application, const QUrl& url) {
  if (application == nullptr) return false;
  // GIO announces a launch over a connection of its own that, left as it is, ends the whole process
  // with the bus.
  const GlibPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (bus) g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  QByteArray encoded = url.toEncoded();
  GList list{encoded.data(), nullptr, nullptr};
  // GLib starts the program through a process of its own that is gone at once, so that nothing is
  // left to be waited for; the program inherits the environment, and what this program prints is
  // not mixed with what that one does.
  const FileDescriptor null(::open("/dev/null", O_RDWR | O_CLOEXEC));
  return g_desktop_app_info_launch_uris_as_manager_with_fds(
             G_DESKTOP_APP_INFO(application), &list, nullptr, G_SPAWN_SEARCH_PATH, nullptr, nullptr,
             nullptr, nullptr, null.get(), null.get(), STDERR_FILENO, nullptr) != FALSE;
}

bool openFolder(const QUrl& folder) {
  const GlibPointer<GAppInfo> application(
      g_app_info_get_default_for_type("inode/directory", FALSE));
  return openWith(application.get(), folder);
}

}  // namespace

bool GioWorkspace::open(const QUrl& url) {
  if (!url.isValid() || url.scheme().isEmpty()) return false;
  const GlibPointer<GAppInfo> application(
      g_app_info_get_default_for_uri_scheme(url.scheme().toUtf8().constData()));
  return openWith(application.get(), url);
}

void GioWorkspace::reveal(const QUrl& file, Revealed revealed) {
  new RevealRequest(bus_, file, openFolder, std::move(revealed), &requests_);
}

void GioWorkspace::launch(const QUrl& application, Launched launched) {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(),
      [result = start(application), launched = std::move(launched)] { launched(result); },
      Qt::QueuedConnection);
}

}  // namespace orvex
