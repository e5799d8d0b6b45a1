#include "ui/SharedTexture.h"

namespace orvex {

TextureNode::TextureNode(QQuickWindow* window) : image_(window->createImageNode()) {
  image_->setOwnsTexture(false);
  image_->setFlag(QSGNode::OwnedByParent, false);
}

TextureNode::~TextureNode() {
  // Before its texture.
  image_.reset();
}

void TextureNode::show(std::shared_ptr<QSGTexture> texture, const QRectF& rect,
                       QSGTexture::Filtering filtering) {
  image_->setTexture(texture.get());
  image_->setFiltering(filtering);
  image_->setRect(rect);
  texture_ = std::move(texture);
  // An image node without a texture must not be rendered.
  if (image_->parent() == nullptr) appendChildNode(image_.get());
}

}  // namespace orvex
