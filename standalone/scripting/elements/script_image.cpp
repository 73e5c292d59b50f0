#include "standalone/scripting/elements/script_image.h"

#include <QImageReader>
#include <memory>

namespace quiltor::standalone {
namespace {

constexpr int kLargestKept = 512;

}  // namespace

ScriptImage* ScriptImage::load(const QString& diskPath) {
  QImageReader reader(diskPath);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(false);
  const QByteArray format = reader.format();
  if (format != "png" && format != "jpeg") return nullptr;
  std::unique_ptr<ScriptImage> image(new ScriptImage);
  image->size_ = reader.size();
  const QSize kept = image->size_.boundedTo(image->size_.scaled(kLargestKept, kLargestKept, Qt::KeepAspectRatio));
  if (kept != image->size_) reader.setScaledSize(kept.expandedTo({1, 1}));
  if (!reader.read(&image->picture_)) return nullptr;
  image->size_ = image->size_.expandedTo({1, 1});
  image->path_ = diskPath;
  image->format_ = QString::fromLatin1(format).toUpper();
  return image.release();
}

QImage ScriptImage::scaledTo(QSize pixels) {
  if (scaled_.size() != pixels) {
    scaled_ = picture_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  return scaled_;
}

}  // namespace quiltor::standalone
