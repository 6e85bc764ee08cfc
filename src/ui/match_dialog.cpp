#include "ui/match_dialog.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <cmath>

#include "matching/match_limits.h"
#include "matching/match_text.h"
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
      cmdApply(new QPushButton("Apply", this)),
      cmdClose(new QPushButton("Close", this)),
      session_(session),
      dialogs_(dialogs) {
  setWindowTitle("Match");
  setModal(true);
  DialogFrame(this);
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
  lstSolutions->setTextElideMode(Qt::ElideNone);
  lblNotes->setWordWrap(true);
  lblWorksOn->setWordWrap(true);

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
  layout->addLayout(buttons);
  resize(Twips(16000), Twips(7000));

  connect(cmdCompute, &QPushButton::clicked, this, &MatchDialog::Compute);
  connect(cmdApply, &QPushButton::clicked, this, &MatchDialog::Apply);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
  connect(lstSolutions, &QTableWidget::cellDoubleClicked, this, &MatchDialog::Apply);
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
  lstSolutions->resizeColumnToContents(0);
  lstSolutions->resizeRowsToContents();
  lblWorksOn->setText(WorksOnText());
  if (lstSolutions->rowCount() > 0) lstSolutions->selectRow(0);
  QStringList notes;
  if (result_.alreadyMatched) notes << "The load is already matched.";
  for (const std::string& note : result_.notes) notes << Q(note);
  for (const std::string& refusal : result_.refusals) notes << Q(refusal);
  lblNotes->setText(notes.join("\n"));
  cmdApply->setEnabled(lstSolutions->rowCount() > 0);
}

void MatchDialog::Apply() {
  const int row = lstSolutions->currentRow();
  if (row < 0 || row >= static_cast<int>(result_.solutions.size())) return;
  const MatchSolution& chosen = result_.solutions[static_cast<std::size_t>(row)];
  const std::vector<std::string> changes = MatchLimitChanges(session_, chosen);
  if (!changes.empty()) {
    std::string text = "The Design page's limits change this network:";
    for (const std::string& change : changes) text += "\r\n" + change;
    text += "\r\n\r\nApply it with these values?";
    if (dialogs_.Message(text, "Match", MessageButtons::YesNo, MessageIcon::Question) != MessageAnswer::Yes) return;
  }
  ApplyMatch(session_, chosen);
  const std::size_t parts = chosen.stages.size();
  appliedStep_ = QString("Match applied (%1, %2 part%3)").arg(MatchKindName(chosen.kind)).arg(parts).arg(parts == 1 ? "" : "s");
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
