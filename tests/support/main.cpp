// The main program of every test: an application object for what needs one, and a failure for every
// warning.
#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  ADD_FAILURE() << "unexpected warning: " << qPrintable(text);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  qInstallMessageHandler(failOnWarning);
  const int result = RUN_ALL_TESTS();
  // What libraries say while the process ends belongs to no test any more.
  qInstallMessageHandler(nullptr);
  return result;
}
