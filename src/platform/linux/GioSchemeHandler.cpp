#include "platform/linux/GioSchemeHandler.h"

#include "platform/linux/GlibPointers.h"

#include <QDir>
#include <QFile>

#include <gio/gdesktopappinfo.h>

namespace orvex {
namespace {

QString entryPath() {
  return QFile::decodeName(g_get_user_data_dir()) +
         QStringLiteral("/applications/com.vantrelo.orvex.finalcut.desktop");
}

// An argument of the entry's Exec key: in double quotes, with a backslash before the four
// characters that mean something between them, and with percent signs doubled, which would be field
// codes. The escapes that every value of the file needs on top are the key file's business.
QString execArgument(const QString& text) {
  QString quoted;
  for (const QChar character : text) {
    if (QStringView(u"\"`$\\").contains(character)) quoted += u'\\';
    if (character == u'%') quoted += u'%';
    quoted += character;
  }
  return u'"' + quoted + u'"';
}

void set(GKeyFile* file, const char* key, const QString& value) {
  g_key_file_set_string(file, G_KEY_FILE_DESKTOP_GROUP, key, value.toUtf8().constData());
}

std::unexpected<QString> failure(const QString& what, const GError* error) {
  const QString cause = error != nullptr ? QString::fromUtf8(error->message) : what;
  return std::unexpected(
      QStringLiteral("%1 Klasörün yazılabilir olduğunu denetle. (%2)").arg(what, cause));
}

GlibPointer<GKeyFile> emptyEntry() {
  GlibPointer<GKeyFile> file(g_key_file_new());
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_TYPE, QStringLiteral("Application"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_NAME, QStringLiteral("Vantrelo Orvex"));
  return file;
}

// Puts `file` in the place of the user's entry and gives the application that GIO reads from it:
// null when the program it names cannot be started.
std::expected<GlibPointer<GAppInfo>, QString> install(GKeyFile* file) {
  const QString path = entryPath();
  const QByteArray encoded = QFile::encodeName(path);
  QDir().mkpath(QFileInfo(path).path());
  GError* error = nullptr;
  g_key_file_save_to_file(file, encoded.constData(), &error);
  if (const GlibPointer<GError> owned(error); owned)
    return failure(QStringLiteral("%1 yazılamadı.").arg(path), owned.get());
  return GlibPointer<GAppInfo>(
      G_APP_INFO(g_desktop_app_info_new_from_filename(encoded.constData())));
}

}  // namespace

std::expected<void, QString> GioSchemeHandler::add(const QString& scheme, const QString& program) {
  const QString type = QStringLiteral("x-scheme-handler/") + scheme;
  const auto file = emptyEntry();
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_COMMENT,
      QStringLiteral("Panelin timeline komutlarını uygular"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_EXEC, execArgument(program) + QStringLiteral(" %u"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_MIME_TYPE, type + u';');
  // Started for an address only, so menus do not show it.
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY, QStringLiteral("true"));

  const auto entry = install(file.get());
  if (!entry) return std::unexpected(entry.error());
  if (!*entry)
    return std::unexpected(
        QStringLiteral("%1 çalıştırılabilir bir program değil. Kurulumu denetle.").arg(program));
  GError* error = nullptr;
  g_app_info_set_as_default_for_type(entry->get(), type.toUtf8().constData(), &error);
  if (const GlibPointer<GError> owned(error); owned)
    return failure(QStringLiteral("%1 adreslerinin varsayılan uygulaması yazılamadı.").arg(scheme),
                   owned.get());
  return {};
}

std::expected<void, QString> GioSchemeHandler::remove() {
  if (!QFile::exists(entryPath())) return {};
  // GIO takes an entry away together with what refers to it, but does not read one whose program is
  // gone. One that names no program is always read.
  const auto entry = install(emptyEntry().get());
  if (!entry) return std::unexpected(entry.error());
  if (!*entry || !g_app_info_delete(entry->get()))
    return failure(QStringLiteral("%1 silinemedi.").arg(entryPath()), nullptr);
  return {};
}

}  // namespace orvex
