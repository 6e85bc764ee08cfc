#pragma once

#include <QComboBox>
#include <QPushButton>
#include <QWidget>

#include "matching/snap.h"

namespace kalvex {

// The series each kind of part is bought in, one box per kind (C, L, R, set
// to their usual series), and the "Snap to standard values" button beside
// them: the same row wherever a result can be snapped.
class SeriesBoxes : public QWidget {
  Q_OBJECT

 public:
  explicit SeriesBoxes(QWidget* parent = nullptr);

  QComboBox* cboCapacitorSeries;
  QComboBox* cboInductorSeries;
  QComboBox* cboResistorSeries;
  QPushButton* cmdSnap;

  SeriesChoice Choice() const;
};

}  // namespace kalvex
