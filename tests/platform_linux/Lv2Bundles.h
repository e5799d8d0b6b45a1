#pragma once

#include "support/TemporaryTree.h"

namespace orvex {

/// A folder of LV2 bundles that a test writes, as LV2_PATH while it lives; behind it the standard's
/// own bundles, which describe the plug-in classes.
struct Lv2Bundles : TemporaryTree {
  Lv2Bundles() { qputenv("LV2_PATH", root() + ":/usr/lib/lv2"); }
  ~Lv2Bundles() { qunsetenv("LV2_PATH"); }

  /// A bundle `name`.lv2 with the plug-in `uri` and what `data` says of it.
  void add(const QByteArray& name, const QByteArray& uri, const QByteArray& data) const {
    const QByteArray plugin = kPrefixes + "<" + uri + "> a lv2:Plugin";
    file(name + ".lv2/manifest.ttl", plugin + " ; lv2:binary <p.so> ; rdfs:seeAlso <p.ttl> .\n");
    file(name + ".lv2/p.ttl", plugin + data);
    file(name + ".lv2/p.so");
  }

  static inline const QByteArray kPrefixes =
      "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
      "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
      "@prefix foaf: <http://xmlns.com/foaf/0.1/> .\n"
      "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n";
  static inline const QByteArray kIn =
      R"([ a lv2:InputPort, lv2:AudioPort ; lv2:index 0 ; lv2:symbol "in" ; lv2:name "in" ])";
  static inline const QByteArray kOut =
      R"([ a lv2:OutputPort, lv2:AudioPort ; lv2:index 1 ; lv2:symbol "out" ; lv2:name "out" ])";
  /// One audio input and one output.
  static inline const QByteArray kPorts = " ; lv2:port " + kIn + " , " + kOut;
};

}  // namespace orvex
