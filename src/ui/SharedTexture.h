#pragma once

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace orvex {

/// The texture that `recipe.render()` paints, shared by all items of a window with an equal recipe
/// for as long as one of them shows it. Call it on the thread that renders the window.
template <typename Recipe>
[[nodiscard]] std::shared_ptr<QSGTexture> sharedTexture(QQuickWindow* window,
                                                        const Recipe& recipe) {
  static std::mutex mutex;
  static std::map<std::pair<QQuickWindow*, Recipe>, std::weak_ptr<QSGTexture>> textures;

  const std::scoped_lock lock(mutex);
  const auto key = std::pair(window, recipe);
  if (const auto found = textures.find(key); found != textures.end())
    if (auto texture = found->second.lock()) return texture;
  std::erase_if(textures, [](const auto& entry) { return entry.second.expired(); });
  std::shared_ptr<QSGTexture> texture(
      window->createTextureFromImage(recipe.render(), QQuickWindow::TextureHasAlphaChannel));
  textures[key] = texture;
  return texture;
}

/// A scene graph node that shows one texture and keeps it alive. Nodes go with the scene graph, so
/// their textures do too.
class TextureNode final : public QSGNode {
 public:
  explicit TextureNode(QQuickWindow* window);
  ~TextureNode() override;

  /// `texture` covers `rect`; it may be shared.
  void show(std::shared_ptr<QSGTexture> texture, const QRectF& rect,
            QSGTexture::Filtering filtering);
  void setRect(const QRectF& rect) { image_->setRect(rect); }

 private:
  std::unique_ptr<QSGImageNode> image_;
  std::shared_ptr<QSGTexture> texture_;
};

}  // namespace orvex
