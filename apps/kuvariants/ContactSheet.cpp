#include "ContactSheet.h"

#include <QFont>
#include <QPainter>
#include <algorithm>

namespace {

constexpr int cellWidth = 280, tallest = 280;
constexpr int captionHeight = 50, gap = 16;
const QColor background(0xf3, 0xf3, 0xf1), paper(Qt::white), ink(0x1e, 0x20, 0x22),
    faintInk(0x5f, 0x65, 0x6b);

/** Three to five columns, as many as leave the fewest places empty. */
int columnsFor(int count) {
  if (count <= 3) return std::max(count, 1);
  int best = 5;
  for (const int columns : {4, 3}) {
    if ((columns - count % columns) % columns < (best - count % best) % best) best = columns;
  }
  return best;
}

void writeLine(QPainter& painter, const QRect& place, const QString& text, int pixels, bool bold,
               const QColor& color) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixels);
  font.setBold(bold);
  painter.setFont(font);
  painter.setPen(color);
  const QString fitting =
      painter.fontMetrics().elidedText(text.simplified(), Qt::ElideRight, place.width());
  painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, fitting);
}

}  // namespace

void ContactSheet::add(const QString& set, const QString& group, const QImage& picture) {
  _cells.push_back(
      {set, group,
       picture.scaled(cellWidth, tallest, Qt::KeepAspectRatio, Qt::SmoothTransformation)});
}

QImage ContactSheet::paint() const {
  const int count = int(_cells.size()), columns = columnsFor(count);
  const int rows = std::max(1, (count + columns - 1) / columns);
  int pictureHeight = 1;
  for (const Cell& cell : _cells)
    pictureHeight = std::max(pictureHeight, cell.picture.height());
  const QSize size(cellWidth, pictureHeight + captionHeight);
  QImage sheet(gap + columns * (size.width() + gap), gap + rows * (size.height() + gap),
               QImage::Format_RGB32);
  if (sheet.isNull()) return sheet;
  sheet.fill(background);
  QPainter painter(&sheet);
  for (int at = 0; at < count; ++at) {
    const QPoint corner(gap + at % columns * (size.width() + gap),
                        gap + at / columns * (size.height() + gap));
    paintCell(painter, _cells[std::size_t(at)], {corner, size});
  }
  return sheet;
}

void ContactSheet::paintCell(QPainter& painter, const Cell& cell, const QRect& place) {
  painter.fillRect(place, paper);
  const QSize room(place.width(), place.height() - captionHeight);
  painter.drawImage(place.x() + (room.width() - cell.picture.width()) / 2,
                    place.y() + (room.height() - cell.picture.height()) / 2, cell.picture);
  const QRect caption = place.adjusted(12, room.height() + 6, -12, -6);
  const int half = cell.group.isEmpty() ? 0 : caption.height() / 2;
  writeLine(painter, caption.adjusted(0, 0, 0, -half), cell.set, 15, true, ink);
  if (half) writeLine(painter, caption.adjusted(0, half, 0, 0), cell.group, 12, false, faintInk);
}
