#pragma once

#include "base/NewFile.h"
#include "support/TemporaryTree.h"

#include <QDir>
#include <QFile>
#include <QString>

namespace orvex {

/// For tests that use the session: refuses to run outside `private-session.sh`, where they would
/// change what the user has, and starts each with an empty home.
class PrivateSession : public testing::Test {
 protected:
  void SetUp() override {
    home_ = qEnvironmentVariable("ORVEX_TEST_HOME");
    ASSERT_FALSE(home_.isEmpty()) << "run this through tests/support/private-session.sh";
    for (const char16_t* folder : {u"/data", u"/config"}) {
      QDir(home_ + QString::fromUtf16(folder)).removeRecursively();
      QDir().mkpath(home_ + QString::fromUtf16(folder));
    }
  }

  [[nodiscard]] QString home(const QString& path) const { return home_ + u'/' + path; }

  /// Writes an executable script and gives its path; the folders above it are made.
  [[nodiscard]] QString script(const QString& path, const QByteArray& body) const {
    const QString full = home(path);
    EXPECT_TRUE(replaceFile(full.toUtf8(), "#!/bin/sh\n" + body));
    QFile::setPermissions(full, QFile::ReadOwner | QFile::ExeOwner);
    return full;
  }

 private:
  QString home_;
};

}  // namespace orvex
