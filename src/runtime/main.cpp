#include "runtime/PanelOptions.h"
#include "runtime/PanelRuntime.h"
#include "shell/OrvexConfig.h"

#include <QFont>
#include <QGuiApplication>
#include <QQmlExtensionPlugin>

#include <cstdio>
#ifdef __GLIBC__
#include <malloc.h>
#endif

Q_IMPORT_QML_PLUGIN(OrvexPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_ColorPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_PagesPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_SpeedPlugin)

namespace {

int wrongUsage(const QString& text) {
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef __GLIBC__
  // Scans and first layouts free most of what they took. Left to itself the library soon keeps
  // blocks of up to 32 MiB for later, in the heap of the thread that freed them.
  ::mallopt(M_MMAP_THRESHOLD, 256 * 1024);
#endif

  // Options are read before there is a display to connect to; the program's own location, which its
  // version is read from, needs an application object all the same.
  const auto options = [&] {
    const QCoreApplication application(argc, argv);
    return orvex::PanelOptions::parse(QCoreApplication::arguments(),
                                      qEnvironmentVariable("ORVEX_HOST"));
  }();
  if (!options) return wrongUsage(options.error());
  if (!options->message.isEmpty()) {
    std::fputs(qUtf8Printable(options->message), stdout);
    return 0;
  }
  if (const auto used = orvex::OrvexConfig::useService(qEnvironmentVariable("ORVEX_SERVICE"));
      !used)
    return wrongUsage(used.error());

  // The companion that the panel starts is to find the same host.
  qputenv("ORVEX_HOST", options->host.text().toUtf8());
  if (!options->screenshot.isEmpty()) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("ORVEX_REDUCED_MOTION", "1");
  }
  QGuiApplication::setApplicationName(QStringLiteral("Vantrelo Orvex"));
  QGuiApplication::setDesktopFileName(QStringLiteral("com.vantrelo.orvex.finalcut"));
  QGuiApplication application(argc, argv);
  // The theme's own, so that texts which are laid out before it is bound to them load no other.
  QGuiApplication::setFont(QFont(QStringLiteral("Inter")));

  orvex::PanelRuntime panel(*options);
  if (options->screenshot.isEmpty()) {
    panel.show();
    return QGuiApplication::exec();
  }
  panel.saveScreenshot([&options](bool saved) {
    if (!saved)
      std::fprintf(stderr, "%s yazılamadı. Klasörün var ve yazılabilir olduğunu denetle.\n",
                   qUtf8Printable(options->screenshot));
    QGuiApplication::exit(saved ? 0 : 1);
  });
  return QGuiApplication::exec();
}
