#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvex {

/// Folders of LV2 bundles that a test writes, as LV2_PATH while it lives; behind them the
/// standard's own bundles, which describe the plug-in classes.
class Lv2Bundles {
 public:
  Lv2Bundles() { qputenv("LV2_PATH", QFile::encodeName(folder_.path()) + ":/usr/lib/lv2"); }
  ~Lv2Bundles() { qunsetenv("LV2_PATH"); }

  [[nodiscard]] QString path(const QString& file = {}) const {
    return folder_.path() + u'/' + file;
  }

  void write(const QString& file, const QByteArray& body) const {
    const QString full = path(file);
    QDir().mkpath(full.left(full.lastIndexOf(u'/')));
    QFile out(full);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(body);
  }

  /// A bundle `name`.lv2 with the plug-in `uri` and what `data` says of it.
  void add(const QString& name, const QByteArray& uri, const QByteArray& data) const {
    const QString bundle = name + QStringLiteral(".lv2/");
    write(bundle + QStringLiteral("manifest.ttl"),
          prefixes() + "<" + uri + "> a lv2:Plugin ; lv2:binary <p.so> ; rdfs:seeAlso <p.ttl> .\n");
    write(bundle + QStringLiteral("p.ttl"), prefixes() + "<" + uri + "> a lv2:Plugin" + data);
    write(bundle + QStringLiteral("p.so"), "");
  }

  [[nodiscard]] static QByteArray prefixes() {
    return "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
           "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
           "@prefix foaf: <http://xmlns.com/foaf/0.1/> .\n"
           "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n";
  }
  /// One audio input and one output.
  [[nodiscard]] static QByteArray ports() { return " ; lv2:port " + in() + " , " + out(); }
  [[nodiscard]] static QByteArray in(const QByteArray& index = "0") {
    return port("lv2:InputPort", index, "in");
  }
  [[nodiscard]] static QByteArray out() { return port("lv2:OutputPort", "1", "out"); }

 private:
  [[nodiscard]] static QByteArray port(const QByteArray& direction, const QByteArray& index,
                                       const QByteArray& symbol) {
    return "[ a " + direction + ", lv2:AudioPort ; lv2:index " + index + " ; lv2:symbol \"" +
           symbol + "\" ; lv2:name \"" + symbol + "\" ]";
  }

  const QTemporaryDir folder_;
};

}  // namespace orvex
