#pragma once

#include <QImage>

#include <span>

namespace orvex::samples {

/// A Motion template and what its picture shows.
struct Template {
  /// Of the folders that it lies in: what it is, and which shelf.
  const char* kind = "";
  const char* category = "";
  const char* name = "";
  /// Draws over a picture that shows the scene before (and, for a transition, `after` what comes).
  void (*draw)(QImage& picture, const QImage& after) = nullptr;
  /// Of the project file, without a dot.
  const char* extension = "";
};

/// The templates there are.
[[nodiscard]] std::span<const Template> allTemplates();
/// The small picture of one.
[[nodiscard]] QImage pictureOf(const Template& entry);

}  // namespace orvex::samples
