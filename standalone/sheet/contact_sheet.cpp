#include "standalone/sheet/contact_sheet.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

namespace quiltor::standalone {
namespace {

// Of the thumbnails' size: whole, so that every pixel of theirs is as large as its neighbours.
constexpr int kEnlargement = 2;
constexpr int kPicture = 50 * kEnlargement;
constexpr int kStepX = kPicture + 24, kStepY = kPicture + 48;
constexpr int kMargin = 24, kHeader = 56, kFewestColumns = 4, kMostColumns = 16;
constexpr double kTitleSize = 20, kRemarkSize = 12.5, kNameSize = 11.5, kNameHeight = 14;
constexpr double kWiderThanHigh = 1.6;

struct Color {
  double r, g, b;
};
constexpr Color kPaper{0.98, 0.976, 0.965}, kInk{0.16, 0.165, 0.19}, kPale{0.45, 0.45, 0.46}, kLine{0.8, 0.79, 0.77};

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Pen = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

// The drawing library takes no other texts.
std::string validUtf8(std::string_view text) {
  std::string valid;
  while (!text.empty()) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    const bool starts = first < 0x80 || (first >= 0xC2 && first < 0xF5);
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    const unsigned second = text.size() > 1 ? static_cast<unsigned char>(text[1]) : 0;
    const bool outside = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                         (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    if (starts && !outside && length <= text.size() && std::ranges::all_of(text.substr(1, length - 1), continues)) {
      valid += first < 0x20 || first == 0x7F ? " " : text.substr(0, length);
      text.remove_prefix(length);
    } else {
      valid += '?';
      text.remove_prefix(1);
    }
  }
  return valid;
}

class Drawing {
 public:
  Drawing(int width, int height)
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height), cairo_surface_destroy),
        pen_(cairo_create(surface_.get()), cairo_destroy) {
    require(cairo_status(pen_.get()));
    paint(kPaper);
    cairo_paint(pen_.get());
  }

  void writeHeading(std::string_view text, double y, double size, const Color& color, double width) {
    cairo_select_font_face(pen_.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           size >= kTitleSize ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(pen_.get(), size);
    paint(color);
    cairo_move_to(pen_.get(), kMargin, y);
    cairo_show_text(pen_.get(), fit(validUtf8(text), width).c_str());
  }

  // In the middle of a column, on two lines when one does not hold it.
  void writeName(std::string_view text, double x, double y, double width) {
    cairo_select_font_face(pen_.get(), "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(pen_.get(), kNameSize);
    paint(kInk);
    const std::string name = validUtf8(text);
    const std::size_t end = fittingStart(name, width);
    for (const std::string& line : {name.substr(0, end), fit(name.substr(end), width)}) {
      cairo_move_to(pen_.get(), x + (width - advance(line)) / 2, y);
      cairo_show_text(pen_.get(), line.c_str());
      y += kNameHeight;
    }
  }

  void show(const PatternImage& picture, double x, double y) {
    const Surface copy(cairo_image_surface_create(CAIRO_FORMAT_RGB24, picture.width, picture.height),
                       cairo_surface_destroy);
    require(cairo_surface_status(copy.get()));
    const int stride = cairo_image_surface_get_stride(copy.get());
    unsigned char* const bytes = cairo_image_surface_get_data(copy.get());
    const uint8_t* source = picture.pixels.data();
    for (int row = 0; row < picture.height; ++row) {
      auto* target = reinterpret_cast<uint32_t*>(bytes + std::ptrdiff_t{row} * stride);
      for (int column = 0; column < picture.width; ++column, source += picture.channels) {
        *target++ = static_cast<uint32_t>(source[0] << 16 | source[1] << 8 | source[2]);
      }
    }
    cairo_surface_mark_dirty(copy.get());
    cairo_save(pen_.get());
    cairo_translate(pen_.get(), x, y);
    cairo_scale(pen_.get(), double{kPicture} / picture.width, double{kPicture} / picture.height);
    cairo_set_source_surface(pen_.get(), copy.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(pen_.get()), CAIRO_FILTER_NEAREST);
    cairo_paint(pen_.get());
    cairo_restore(pen_.get());
  }

  void showMissing(double x, double y) {
    paint(kLine);
    cairo_set_line_width(pen_.get(), 1);
    cairo_rectangle(pen_.get(), x + 0.5, y + 0.5, kPicture - 1, kPicture - 1);
    cairo_move_to(pen_.get(), x + 0.5, y + 0.5);
    cairo_rel_line_to(pen_.get(), kPicture - 1, kPicture - 1);
    cairo_move_to(pen_.get(), x + 0.5, y + kPicture - 0.5);
    cairo_rel_line_to(pen_.get(), kPicture - 1, 1 - kPicture);
    cairo_stroke(pen_.get());
  }

  PatternImage finish() {
    require(cairo_status(pen_.get()));
    cairo_surface_flush(surface_.get());
    PatternImage image = {
        cairo_image_surface_get_width(surface_.get()), cairo_image_surface_get_height(surface_.get()), 3, {}};
    image.pixels.reserve(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 3);
    const int stride = cairo_image_surface_get_stride(surface_.get());
    const unsigned char* const bytes = cairo_image_surface_get_data(surface_.get());
    for (int row = 0; row < image.height; ++row) {
      const auto* pixel = reinterpret_cast<const uint32_t*>(bytes + std::ptrdiff_t{row} * stride);
      for (int column = 0; column < image.width; ++column, ++pixel) {
        for (const int shift : {16, 8, 0}) image.pixels.push_back(static_cast<uint8_t>(*pixel >> shift));
      }
    }
    return image;
  }

 private:
  static void require(cairo_status_t status) {
    if (status != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
  }

  void paint(const Color& color) { cairo_set_source_rgb(pen_.get(), color.r, color.g, color.b); }

  double advance(const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(pen_.get(), text.c_str(), &extents);
    return extents.x_advance;
  }

  static bool continues(const std::string& text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
  }

  // How many bytes from the start on are whole characters and not too wide.
  std::size_t fittingStart(const std::string& text, double width) {
    std::size_t end = text.size();
    while (end > 0 && (continues(text, end) || advance(text.substr(0, end)) > width)) --end;
    return end;
  }

  // The middle of what is too wide gives way to dots: numbers at the end tell the patterns of a file apart.
  std::string fit(const std::string& text, double width) {
    if (advance(text) <= width) return text;
    std::size_t head = text.size() / 2, tail = head;
    std::string cut;
    while (head > 0 || tail < text.size()) {
      if (head > 0 && head >= text.size() - tail) {
        --head;
      } else {
        ++tail;
      }
      while (head > 0 && continues(text, head)) --head;
      while (continues(text, tail)) ++tail;
      cut = text.substr(0, head) + "\xE2\x80\xA6" + text.substr(tail);
      if (advance(cut) <= width) break;
    }
    return cut;
  }

  Surface surface_;
  Pen pen_;
};

}  // namespace

PatternImage drawContactSheet(const ContactSheet& sheet) {
  const int count = static_cast<int>(std::min(sheet.entries.size(), kMostSheetEntries));
  const int columns =
      std::clamp(static_cast<int>(std::ceil(std::sqrt(count * kWiderThanHigh))), kFewestColumns, kMostColumns);
  const int rows = (count + columns - 1) / columns;
  const int inner = columns * kStepX - (kStepX - kPicture);
  Drawing drawing(inner + 2 * kMargin, kMargin + kHeader + rows * kStepY + kMargin / 2);
  drawing.writeHeading(sheet.title, kMargin + 16, kTitleSize, kInk, inner);
  drawing.writeHeading(sheet.remark, kMargin + 36, kRemarkSize, kPale, inner);
  for (int i = 0; i < count; ++i) {
    const SheetEntry& entry = sheet.entries[static_cast<std::size_t>(i)];
    const int x = kMargin + i % columns * kStepX, y = kMargin + kHeader + i / columns * kStepY;
    if (isWhole(entry.thumbnail) && entry.thumbnail.channels >= 3) {
      drawing.show(entry.thumbnail, x, y);
    } else {
      drawing.showMissing(x, y);
    }
    constexpr int kOverhang = 8;
    drawing.writeName(entry.name, x - kOverhang, y + kPicture + 16, kPicture + 2 * kOverhang);
  }
  return drawing.finish();
}

}  // namespace quiltor::standalone
