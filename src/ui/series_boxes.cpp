#include "ui/series_boxes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <tuple>

namespace kalvex {

SeriesBoxes::SeriesBoxes(QWidget* parent)
    : QWidget(parent),
      cboCapacitorSeries(new QComboBox(this)),
      cboInductorSeries(new QComboBox(this)),
      cboResistorSeries(new QComboBox(this)),
      cmdSnap(new QPushButton("Snap to standard values", this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  const SeriesChoice defaults;
  for (auto [box, label, kind] : {std::tuple(cboCapacitorSeries, "C", PartKind::Capacitor),
                                  std::tuple(cboInductorSeries, "L", PartKind::Inductor),
                                  std::tuple(cboResistorSeries, "R", PartKind::Resistor)}) {
    for (const ESeries e : kAllSeries) box->addItem(SeriesName(e));
    box->setCurrentText(SeriesName(defaults.Of(kind)));
    row->addWidget(new QLabel(label, this));
    row->addWidget(box);
  }
  row->addWidget(cmdSnap);
}

SeriesChoice SeriesBoxes::Choice() const {
  SeriesChoice choice;
  for (auto [box, kind] : {std::pair(cboCapacitorSeries, PartKind::Capacitor),
                           std::pair(cboInductorSeries, PartKind::Inductor),
                           std::pair(cboResistorSeries, PartKind::Resistor)}) {
    choice.Of(kind) = kAllSeries[std::max(0, box->currentIndex())];
  }
  return choice;
}

}  // namespace kalvex
