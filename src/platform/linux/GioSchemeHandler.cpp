#include "platform/linux/GioSchemeHandler.h"

#include "platform/linux/GlibPointers.h"

#include <QDir>
#include <QFile>

#include <gio/gdesktopappinfo.h>

namespace orvex {
namespace {

constexpr auto kEntryName = "com.vantrelo.orvex.finalcut.desktop";

QString entryPath() {
  return QFile::decodeName(g_get_user_data_dir()) + QStringLiteral("/applications/") +
         QString::fromLatin1(kEntryName);
}

QByteArray mimeType(const QString& scheme) {
  return QByteArray("x-scheme-handler/") + scheme.toUtf8();
}

GlibPointer<GAppInfo> defaultFor(const QString& scheme) {
  return GlibPointer<GAppInfo>(
      g_app_info_get_default_for_type(mimeType(scheme).constData(), FALSE));
}

bool isEntry(GAppInfo& application) {
  return qstrcmp(g_app_info_get_id(&application), kEntryName) == 0;
}

// An argument of the entry's Exec key: in double quotes, with a backslash before the four
// characters that mean something between them. The escapes that every value of the file needs on
// top are the key file's business.
QString execArgument(const QString& text) {
  QString quoted;
  for (const QChar character : text) {
    if (QStringView(u"\"`$\\").contains(character)) quoted += u'\\';
    quoted += character;
  }
  return u'"' + quoted + u'"';
}

void set(GKeyFile* file, const char* key, const QString& value) {
  g_key_file_set_string(file, G_KEY_FILE_DESKTOP_GROUP, key, value.toUtf8().constData());
}

std::unexpected<QString> failure(const QString& what, const GError& error) {
  return std::unexpected(QStringLiteral("%1 Klasörün yazılabilir olduğunu denetle. (%2)")
                             .arg(what, QString::fromUtf8(error.message)));
}

}  // namespace

std::expected<void, QString> GioSchemeHandler::add(const QString& scheme, const QString& program) {
  // It begins a field code there, and GIO looks for the program before it reads the escape for it.
  if (program.contains(u'%'))
    return std::unexpected(
        QStringLiteral(
            "%1 kaydedilemez: program yolunda % olamaz. Programı başka bir klasöre taşı.")
            .arg(program));
  const GlibPointer<GKeyFile> file(g_key_file_new());
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_TYPE, QStringLiteral("Application"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_NAME, QStringLiteral("Vantrelo Orvex"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_COMMENT,
      QStringLiteral("Panelin timeline komutlarını uygular"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_EXEC, execArgument(program) + QStringLiteral(" %u"));
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_MIME_TYPE, QString::fromUtf8(mimeType(scheme)) + u';');
  // Started for an address only, so menus do not show it.
  set(file.get(), G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY, QStringLiteral("true"));

  const QString path = entryPath();
  QDir().mkpath(QFileInfo(path).path());
  GError* error = nullptr;
  g_key_file_save_to_file(file.get(), QFile::encodeName(path).constData(), &error);
  if (const GlibPointer<GError> owned(error); owned)
    return failure(QStringLiteral("%1 yazılamadı.").arg(path), *owned);
  const GlibPointer<GDesktopAppInfo> entry(
      g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
  if (!entry)
    return std::unexpected(
        QStringLiteral("%1 çalıştırılabilir bir program değil. Kurulumu denetle.").arg(program));
  // Choosing what is chosen already would reorder the user's list of associations.
  if (const auto chosen = defaultFor(scheme); chosen && isEntry(*chosen)) return {};
  g_app_info_set_as_default_for_type(G_APP_INFO(entry.get()), mimeType(scheme).constData(), &error);
  if (const GlibPointer<GError> owned(error); owned)
    return failure(QStringLiteral("%1 adreslerinin varsayılan uygulaması yazılamadı.").arg(scheme),
                   *owned);
  return {};
}

std::expected<void, QString> GioSchemeHandler::remove(const QString& scheme) {
  const QString path = entryPath();
  // Another application that the user chose since then stays chosen.
  if (const auto chosen = defaultFor(scheme); !chosen || isEntry(*chosen))
    g_app_info_reset_type_associations(mimeType(scheme).constData());
  if (QFile file(path); file.exists() && !file.remove())
    return std::unexpected(
        QStringLiteral("%1 silinemedi. Klasörün yazılabilir olduğunu denetle. (%2)")
            .arg(path, file.errorString()));
  return {};
}

}  // namespace orvex
