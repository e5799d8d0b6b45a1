#include "base/DescribedError.h"
#include "engines/FolderBookmarkStore.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "platform/FolderAccess.h"
#include "platform/Platform.h"
#include "samples/SampleLibrary.h"
#include "samples/SamplePacks.h"

#include <QDir>
#include <QGuiApplication>
#include <QSettings>

#include <cstdio>

namespace {

using namespace orvex;

// Gives the panel the folders of the library as if they had been chosen, but for those that it has
// already been given.
void grantLibrary(const QString& folder) {
  const auto platform = makePlatform();
  QSettings settings(QStringLiteral("Vantrelo"), QStringLiteral("Vantrelo Orvex"));
  FolderBookmarkStore bookmarks(platform->folderAccess(), settings, platform->log());
  const auto grant = [&](FolderRegistry&& registry, const char* name) {
    const auto await = [](const auto& isOver) {
      while (!isOver()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    await([&] { return registry.rootURL() || !registry.isScanning(); });
    if (registry.rootURL()) return;
    QString refusal;
    QObject::connect(&registry, &FolderRegistry::refused, &registry,
                     [&](const QString& reason) { refusal = reason; });
    registry.useFolder(QUrl::fromLocalFile(folder + u'/' + QString::fromUtf8(name)));
    await([&] { return registry.rootURL() || !refusal.isEmpty(); });
    if (!refusal.isEmpty()) throw DescribedError(refusal);
  };
  grant(LUTRegistry(bookmarks), samples::kLutFolder);
  grant(MotionTemplateRegistry(bookmarks), samples::kMotionFolder);
  grant(FxPlugRegistry(bookmarks), samples::kFxPlugFolder);
}

int run(const QStringList& arguments) {
  const QString verb = arguments.size() == 2 && !arguments[1].isEmpty() ? arguments[0] : QString();
  const QString folder = QDir(arguments.value(1)).absolutePath();
  if (verb == u"library")
    samples::makeLibrary(folder);
  else if (verb == u"grant")
    grantLibrary(folder);
  else if (verb == u"packs")
    samples::makePacks(folder, samples::PackState::First);
  else if (verb == u"updated-packs")
    samples::makePacks(folder, samples::PackState::Updated);
  else {
    std::fputs(
        "usage: orvex-samples library DIR         LUTs, Motion templates, plug-in bundles, "
        "effects\n"
        "       orvex-samples grant DIR           gives the panel that library's folders\n"
        "       orvex-samples packs DIR           content packs for orvex cloud build\n"
        "       orvex-samples updated-packs DIR   the same with a newer version of one\n",
        stderr);
    return 2;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  // Text is drawn into pictures; no display is needed for that.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  try {
    return run(QCoreApplication::arguments().mid(1));
  } catch (const DescribedError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
