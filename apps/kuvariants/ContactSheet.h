#pragma once

#include <QImage>
#include <QString>
#include <vector>

class QPainter;

/** One picture with all sets and their names. */
class ContactSheet {
 public:
  void add(const QString& set, const QString& group, const QImage& picture);

  /** Laid out in rows of three to five; a sheet of less than three has less. */
  QImage paint() const;

 private:
  struct Cell {
    QString set, group;
    /** No larger than the sheet shows it. */
    QImage picture;
  };

  static void paintCell(QPainter& painter, const Cell& cell, const QRect& place);

  std::vector<Cell> _cells;
};
