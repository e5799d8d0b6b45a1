#include "base/PropertyList.h"

#include "base/BinaryPropertyList.h"
#include "base/Text.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <memory>
#include <plist/plist.h>

namespace orvex {
namespace {

struct NodeDeleter {
  void operator()(void* node) const noexcept { plist_free(node); }
};

// Whether `text` begins like `form`, in which "0" stands for any digit.
bool beginsLike(QByteArrayView text, QByteArrayView form) {
  return text.size() >= form.size() &&
         std::ranges::equal(text.first(form.size()), form, [](char c, char wanted) {
           return wanted == '0' ? c >= '0' && c <= '9' : c == wanted;
         });
}

// libplist 2.2.0 reads past its buffer on odd <date> texts and recurses without a limit, so the
// document is walked once by a reader that does neither before it is handed over. The two must not
// be led to see different documents: declarations inside the document, which only one of them
// reads, are refused, and so is every "<date" that does not begin a date of the one form; and as
// libplist takes every document for UTF-8, so does the reader, whatever encoding is declared.
std::expected<void, QString> checkDocument(const QByteArray& bytes) {
  for (qsizetype at = 0; (at = bytes.indexOf("<date", at)) >= 0; ++at)
    if (!beginsLike(QByteArrayView(bytes).sliced(at), "<date>0000-00-00T00:00:00Z</date>"))
      return std::unexpected(QStringLiteral("the property list holds an odd date"));
  QXmlStreamReader reader(QString::fromUtf8(bytes));
  int depth = 0;
  while (!reader.atEnd()) {
    switch (reader.readNext()) {
      case QXmlStreamReader::StartElement:
        if (++depth > PropertyList::kMaximumDepth)
          return std::unexpected(QStringLiteral("the property list is nested too deeply"));
        break;
      case QXmlStreamReader::EndElement:
        --depth;
        break;
      case QXmlStreamReader::DTD:
        if (reader.text().contains(u'['))
          return std::unexpected(QStringLiteral("the property list declares types of its own"));
        break;
      default:
        break;
    }
  }
  if (reader.hasError()) return std::unexpected(reader.errorString());
  return {};
}

QVariant convert(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      uint8_t value = 0;
      plist_get_bool_val(node, &value);
      return QVariant(value != 0);
    }
    case PLIST_UINT: {
      uint64_t value = 0;
      plist_get_uint_val(node, &value);
      return QVariant(static_cast<qlonglong>(value));
    }
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return QVariant(value);
    }
    case PLIST_STRING: {
      uint64_t length = 0;
      const char* text = plist_get_string_ptr(node, &length);
      return QVariant(utf8Text({text, static_cast<qsizetype>(length)}));
    }
    case PLIST_DATA: {
      uint64_t length = 0;
      const char* data = plist_get_data_ptr(node, &length);
      return QVariant(QByteArray(data, static_cast<qsizetype>(length)));
    }
    case PLIST_ARRAY: {
      QVariantList list;
      plist_array_iter rawIterator = nullptr;
      plist_array_new_iter(node, &rawIterator);
      const std::unique_ptr<void, decltype(&free)> iterator(rawIterator, &free);
      for (;;) {
        plist_t value = nullptr;
        plist_array_next_item(node, iterator.get(), &value);
        if (value == nullptr) break;
        list.append(convert(value));
      }
      return list;
    }
    case PLIST_DICT: {
      QVariantMap map;
      plist_dict_iter rawIterator = nullptr;
      plist_dict_new_iter(node, &rawIterator);
      const std::unique_ptr<void, decltype(&free)> iterator(rawIterator, &free);
      for (;;) {
        char* rawKey = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, iterator.get(), &rawKey, &value);
        const std::unique_ptr<char, decltype(&free)> key(rawKey, &free);
        if (value == nullptr) break;
        map.insert(utf8Text(key.get()), convert(value));
      }
      return map;
    }
    default:
      return {};
  }
}

}  // namespace

std::expected<QVariant, QString> PropertyList::parse(const QByteArray& bytes) {
  if (bytes.size() > kMaximumBytes)
    return std::unexpected(QStringLiteral("the property list is too large"));
  plist_t root = nullptr;
  const auto size = static_cast<uint32_t>(bytes.size());
  if (isBinaryPropertyList(bytes)) {
    if (const auto checked = checkBinaryPropertyList(bytes, kMaximumDepth); !checked)
      return std::unexpected(checked.error());
    plist_from_bin(bytes.constData(), size, &root);
  } else {
    if (const auto checked = checkDocument(bytes); !checked)
      return std::unexpected(checked.error());
    plist_from_xml(bytes.constData(), size, &root);
  }
  if (root == nullptr) return std::unexpected(QStringLiteral("not a property list"));
  const std::unique_ptr<void, NodeDeleter> owner(root);
  return convert(root);
}

std::expected<QByteArray, QString> PropertyList::binary(const QVariantMap& dictionary) {
  const std::unique_ptr<void, NodeDeleter> root(plist_new_dict());
  for (const auto& [key, value] : dictionary.asKeyValueRange()) {
    plist_t node = nullptr;
    if (value.typeId() == QMetaType::Bool) node = plist_new_bool(value.toBool() ? 1 : 0);
    if (value.typeId() == QMetaType::QString)
      node = plist_new_string(value.toString().toUtf8().constData());
    if (node == nullptr) return std::unexpected(QStringLiteral("neither a Boolean nor a text"));
    plist_dict_set_item(root.get(), key.toUtf8().constData(), node);
  }
  char* rawBytes = nullptr;
  uint32_t size = 0;
  plist_to_bin(root.get(), &rawBytes, &size);
  const std::unique_ptr<char, decltype(&free)> owner(rawBytes, &free);
  const QByteArray bytes(rawBytes, size);
  // The library cuts a text at a zero character and takes half a surrogate pair for a question
  // mark.
  if (parse(bytes) != QVariant(dictionary))
    return std::unexpected(QStringLiteral("not to be written as a property list"));
  return bytes;
}

}  // namespace orvex
