#include "ui/match_dialog.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "matching/match_limits.h"
#include "matching/match_text.h"
#include "matching/snap_text.h"
#include "model/format.h"
#include "model/trim.h"
#include "ui/controls.h"

namespace kalvex {
namespace {

const std::vector<std::vector<MatchKind>> kKindChoices = {
    {MatchKind::L, MatchKind::Pi, MatchKind::T, MatchKind::Stub, MatchKind::QuarterWave,
     MatchKind::Binomial, MatchKind::Chebyshev},
    {MatchKind::L}, {MatchKind::Pi}, {MatchKind::T}, {MatchKind::Stub}, {MatchKind::QuarterWave},
    {MatchKind::Binomial, MatchKind::Chebyshev}};

QString Number(double value) { return QString::number(value, 'g', 4); }

Session Matched(const Session& session, const MatchSolution& solution) {
  Session matched = session;
  ApplyMatch(matched, solution);
  return matched;
}

bool HasStandardParts(const Session& session) {
  const std::vector<NetworkPart> parts = PartsOf(session);
  return std::any_of(parts.begin(), parts.end(), [](const NetworkPart& p) { return HasStandardValues(p.kind); });
}

}  // namespace

MatchDialog::MatchDialog(Session& session, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent),
      lblWorksOn(new QLabel(this)),
      cboKind(new QComboBox(this)),
      txtQ(new QLineEdit(this)),
      cboSections(new QComboBox(this)),
      txtRipple(new QLineEdit("0.1", this)),
      cmdCompute(new QPushButton("Compute", this)),
      lstSolutions(new QTableWidget(this)),
      lblNotes(new QLabel(this)),
      series(new SeriesBoxes(this)),
      lblSnap(new QLabel(this)),
      cmdApply(new QPushButton("Apply", this)),
      cmdClose(new QPushButton("Close", this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Match");
  setModal(true);
  const double scale = DialogFrame(this);
  cboKind->addItems({"All kinds", "L", "Pi", "T", "Stub", "Quarter-wave", "Multi-section"});
  cboSections->addItems({"2 to 4", "2", "3", "4", "5", "6", "7"});
  txtQ->setPlaceholderText("twice the smallest, at least 1");
  lstSolutions->setColumnCount(6);
  lstSolutions->setHorizontalHeaderLabels({"Kind", "Parts from the load", "Loaded Q", "Response", "DC", "Worst VSWR"});
  lstSolutions->setSelectionBehavior(QAbstractItemView::SelectRows);
  lstSolutions->setSelectionMode(QAbstractItemView::SingleSelection);
  lstSolutions->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lstSolutions->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  // A long list of parts wraps in its cell rather than ending in "…", and
  // shows whole in its tip.
  lstSolutions->setWordWrap(true);
  // Each row as tall as its text wrapped at the columns' widths, again
  // whenever they change: the dialog's width is known only once it shows.
  // Queued, as a row's height is taken over the columns in view, and the
  // view has its new width only once the change is done.
  connect(lstSolutions->horizontalHeader(), &QHeaderView::sectionResized, lstSolutions,
          &QTableWidget::resizeRowsToContents, Qt::QueuedConnection);
  lstSolutions->setTextElideMode(Qt::ElideNone);
  lblNotes->setWordWrap(true);
  lblWorksOn->setWordWrap(true);
  lblSnap->setWordWrap(true);
  series->cmdSnap->setToolTip("The chosen network's capacitors, inductors and resistors on these series, "
                              "its lines and stubs re-tuned; Apply then writes the snapped values");

  auto* choices = new QGridLayout;
  const std::pair<const char*, QWidget*> fields[] = {
      {"Kind", cboKind}, {"Loaded Q (Pi, T)", txtQ}, {"Sections", cboSections}, {"Ripple (dB)", txtRipple}};
  int column = 0;
  for (const auto& [caption, field] : fields) {
    choices->addWidget(new QLabel(caption, this), 0, column);
    choices->addWidget(field, 1, column++);
  }
  choices->addWidget(cmdCompute, 1, column);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdApply);
  buttons->addWidget(cmdClose);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblWorksOn);
  layout->addLayout(choices);
  layout->addWidget(lstSolutions);
  layout->addWidget(lblNotes);
  layout->addWidget(series, 0, Qt::AlignLeft);
  layout->addWidget(lblSnap);
  layout->addLayout(buttons);
  resize(static_cast<int>(Twips(16000) * scale), static_cast<int>(Twips(7000) * scale));

  connect(cmdCompute, &QPushButton::clicked, this, &MatchDialog::Compute);
  connect(cmdApply, &QPushButton::clicked, this, &MatchDialog::Apply);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  connect(lstSolutions, &QTableWidget::cellDoubleClicked, this, &MatchDialog::Apply);
  connect(lstSolutions, &QTableWidget::itemSelectionChanged, this, &MatchDialog::ChosenChanged);
  connect(series->cmdSnap, &QPushButton::clicked, this, &MatchDialog::Snap);
  for (QComboBox* box : {series->cboCapacitorSeries, series->cboInductorSeries, series->cboResistorSeries}) {
    connect(box, &QComboBox::currentIndexChanged, this, &MatchDialog::ChosenChanged);
  }
  Compute();
}

void MatchDialog::Compute() {
  MatchRequest request;
  request.kinds = kKindChoices[static_cast<std::size_t>(std::max(0, cboKind->currentIndex()))];
  request.loadedQ = txtQ->text().trimmed().isEmpty() ? 0 : ParseValue(txtQ->text().toStdString());
  request.sections = cboSections->currentIndex() == 0 ? 0 : cboSections->currentIndex() + 1;
  request.rippleDb = ParseValue(txtRipple->text().toStdString());
  if (!(request.rippleDb > 0)) request.rippleDb = 0.1;
  result_ = FindMatches(session_, request);

  lstSolutions->setRowCount(static_cast<int>(result_.solutions.size()));
  for (int row = 0; row < lstSolutions->rowCount(); ++row) {
    const MatchSolution& s = result_.solutions[static_cast<std::size_t>(row)];
    const QString cells[] = {MatchKindName(s.kind), Q(MatchPartsText(s)), Number(s.loadedQ),
                             MatchResponseName(s.response), s.passesDC ? "passes" : "blocks",
                             Number(s.worstVSWR)};
    for (int column = 0; column < 6; ++column) {
      auto* item = new QTableWidgetItem(cells[column]);
      item->setToolTip(cells[column]);
      lstSolutions->setItem(row, column, item);
    }
  }
  // The short figures and their headings whole at any font; the parts take the rest.
  for (const int column : {0, 2, 3, 4, 5}) lstSolutions->resizeColumnToContents(column);
  lstSolutions->resizeRowsToContents();
  lblWorksOn->setText(WorksOnText());
  if (lstSolutions->rowCount() > 0) lstSolutions->selectRow(0);
  QStringList notes;
  if (result_.alreadyMatched) notes << "The load is already matched.";
  for (const std::string& note : result_.notes) notes << Q(note);
  for (const std::string& refusal : result_.refusals) notes << Q(refusal);
  lblNotes->setText(notes.join("\n"));
  cmdApply->setEnabled(lstSolutions->rowCount() > 0);
  ChosenChanged();
}

const MatchSolution* MatchDialog::Chosen() const {
  const int row = lstSolutions->currentRow();
  if (row < 0 || row >= static_cast<int>(result_.solutions.size())) return nullptr;
  return &result_.solutions[static_cast<std::size_t>(row)];
}

// A snap belongs to the solution and the series it was made for.
void MatchDialog::ChosenChanged() {
  snapTask_.Stop();
  snap_.reset();
  lblSnap->clear();
  const MatchSolution* chosen = Chosen();
  series->cmdSnap->setEnabled(chosen != nullptr && HasStandardParts(Matched(session_, *chosen)));
  cmdApply->setEnabled(chosen != nullptr);
}

void MatchDialog::Snap() {
  const MatchSolution* chosen = Chosen();
  if (chosen == nullptr) return;
  SnapRequest request;
  for (int s = 1; s <= kLastStage; ++s) request.stages.push_back(s);
  request.series = series->Choice();
  series->cmdSnap->setEnabled(false);
  cmdApply->setEnabled(false);
  lblSnap->setText("Snapping...");
  snapTask_.Start(
      [matched = Matched(session_, *chosen), request](const std::atomic<bool>& stop) {
        return SnapToStandardValues(matched, request, &stop);
      },
      [this](const SnapResult& result) { Snapped(result); });
}

void MatchDialog::Snapped(const SnapResult& result) {
  snap_ = result;
  lblSnap->setText(Q(SnapReport(result)).trimmed());
  series->cmdSnap->setEnabled(true);
  cmdApply->setEnabled(true);
}

void MatchDialog::Apply() {
  const MatchSolution* solution = Chosen();
  if (solution == nullptr || snapTask_.Running()) return;
  const MatchSolution& chosen = *solution;
  const std::vector<std::string> changes = MatchLimitChanges(session_, chosen);
  if (!changes.empty()) {
    std::string text = "The Design page's limits change this network:";
    for (const std::string& change : changes) text += "\r\n" + change;
    text += "\r\n\r\nApply it with these values?";
    if (dialogs_.Message(text, "Match", MessageButtons::YesNo, MessageIcon::Question) != MessageAnswer::Yes) return;
  }
  ApplyMatch(session_, chosen);
  if (snap_) ApplySnapped(session_, *snap_);
  const std::size_t parts = chosen.stages.size();
  appliedStep_ = QString("Match applied (%1, %2 part%3)%4")
                     .arg(MatchKindName(chosen.kind))
                     .arg(parts)
                     .arg(parts == 1 ? "" : "s")
                     .arg(snap_ ? ", snapped" : "");
  accept();
}

// What the solutions are for: the load and the frequency it is matched at,
// the system impedance, and the band each worst VSWR is taken over.
QString MatchDialog::WorksOnText() const {
  const MatchLoad load = LoadToMatch(session_);
  const auto ohms = [](double value) { return QString::number(value, 'g', 6); };
  QString text = QString("Load %1 %2j%3 ohms at %4Hz, system impedance %5 ohms")
                     .arg(ohms(load.z.R), QString(load.z.X < 0 ? "-" : "+"), ohms(std::fabs(load.z.X)),
                          Q(Trimmed(FormatSI(load.frequency))), ohms(session_.SystemZ));
  if (result_.alreadyMatched) return text;
  return text + "; " + Q(Trimmed(MatchBandText(result_)));
}

}  // namespace kalvex
