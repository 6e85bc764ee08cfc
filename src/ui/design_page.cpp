#include "ui/design_page.h"

#include <QFileInfo>
#include <QSignalBlocker>

#include "design/design_values.h"
#include "design/welcome_pictures.h"
#include "files/load_data_file.h"
#include "files/network_file.h"
#include "model/network_state.h"
#include "ui/match_dialog.h"
#include "ui/two_port_dialog.h"
#include "ui/page_menus.h"
#include "files/spice_deck.h"
#include "model/format.h"
#include "ui/analysis_page.h"
#include "ui/controls.h"
#include "ui/exit_dialog.h"
#include "ui/keys.h"
#include "ui/options_page.h"
#include "ui/session_history.h"
#include "ui/stage_part_dialog.h"

namespace kalvex {

DesignPage::DesignPage(Session& session, Dialogs& dialogs)
    : Page({kDesignPageWidth, kDesignPageHeight}),
      lblSystemZ(new QLabel("System Z (ohms):", this)),
      txtSystemZ(new QLineEdit(this)),
      lblFrequency(new QLabel("System Freq. (Hz):", this)),
      txtFrequency(new QLineEdit(this)),
      lblInductorQ(new QLabel("Default Inductor Q:", this)),
      txtInductorQ(new QLineEdit(this)),
      lblCapacitorQ(new QLabel("Default Capacitor Q:", this)),
      txtCapacitorQ(new QLineEdit(this)),
      cmdAnalyze(Button(this, "Analyze", "Go to the Analyze page")),
      cmdCompact(Button(this, "Compact", "Remove empty stages in the network")),
      cmdSave(Button(this, "Save net", "Save the current network")),
      cmdGetNet(Button(this, "Get net", "Get a previously-saved network")),
      cmdExit(Button(this, "End", "Exit / quit the program")),
      cmdGetLoad(Button(this, "Get freq/load")),
      cmdEnterZ(Button(this, "Enter Z")),
      cmdEnterFreq(Button(this, "Enter freq")),
      cmdSetup(Button(this, "Setup")),
      cmdSpice(Button(this, "Write LTspice")),
      lblSelectElementToEdit(new QLabel("Click on a stage to enter, change or edit it", this)),
      lblClickOnALibraryPart(new QLabel("Click on a library part to select it", this)),
      cmdAccept(Button(this, "Accept", "Accept the values in the boxes")),
      cmdDontAccept(Button(this, "Don't accept")),
      lblRemove(new QLabel("The element at stage five will be removed if you Accept this entry",
                           this)),
      session_(session),
      dialogs_(dialogs),
      editor_(session, session.CoilArcRadius) {
  for (int i = 0; i < 4; ++i) {
    lblValue[i] = new QLabel(this);
    txtValue[i] = new QLineEdit(this);
    connect(txtValue[i], &QLineEdit::textChanged, this,
            [this, i](const QString& text) { editor_.controls.value[i].text = text.toStdString(); });
  }
  lblRemove->setWordWrap(true);
  PlaceControls();

  // Each box is live in the session on every change, typed or written here.
  connect(txtSystemZ, &QLineEdit::textChanged, this,
          [this](const QString& t) {
            session_.SystemZ = ParseValue(t.toStdString());
            ShowMatchStatus(session_);
          });
  connect(txtFrequency, &QLineEdit::textChanged, this,
          [this](const QString& t) {
            session_.Frequency = ParseValue(t.toStdString());
            ShowMatchStatus(session_);
          });
  connect(txtCapacitorQ, &QLineEdit::textChanged, this, [this](const QString& t) {
    session_.DefaultCapacitorQ = static_cast<float>(ParseValue(t.toStdString()));
  });
  connect(txtInductorQ, &QLineEdit::textChanged, this, [this](const QString& t) {
    session_.DefaultInductorQ = static_cast<float>(ParseValue(t.toStdString()));
  });
  for (QLineEdit* box : {txtSystemZ, txtFrequency, txtCapacitorQ, txtInductorQ}) {
    connect(box, &QLineEdit::textEdited, this, [this, box] { typedBox_ = box; });
    connect(box, &QLineEdit::editingFinished, this, &DesignPage::RecordTyping);
  }

  // The keyboard leaves the value boxes before they hide, so that it does not
  // fall into the system impedance box with its text selected.
  connect(cmdAccept, &QPushButton::clicked, this, &DesignPage::AcceptEdit);
  connect(cmdDontAccept, &QPushButton::clicked, this, [this] {
    setFocus();
    editor_.DontAccept();
    ShowEditor();
  });
  for (QLineEdit* box : txtValue) {
    connect(box, &QLineEdit::returnPressed, this, [this] {
      if (cmdAccept->isVisible()) cmdAccept->click();
    });
  }
  connect(cmdCompact, &QPushButton::clicked, this, [this] {
    editor_.Compact();
    ReopenDesignPage();
    RecordStep("Compact");
  });
  connect(cmdAnalyze, &QPushButton::clicked, this, &DesignPage::Analyze);
  connect(cmdSave, &QPushButton::clicked, this, [this] { SaveNetworkAs(session_, dialogs_); });
  connect(cmdGetNet, &QPushButton::clicked, this, &DesignPage::GetNetwork);
  connect(cmdSetup, &QPushButton::clicked, this, &DesignPage::OpenOptions);
  connect(cmdGetLoad, &QPushButton::clicked, this, &DesignPage::GetLoad);
  connect(cmdSpice, &QPushButton::clicked, this, [this] { WriteSpiceDeck(session_, dialogs_); });
  connect(cmdExit, &QPushButton::clicked, this,
          [this] { ExitDialog(session_, dialogs_, this).exec(); });
  PageCommands commands;
  commands.getNet = [this] { cmdGetNet->click(); };
  commands.saveNet = [this] { cmdSave->click(); };
  commands.getLoad = [this] { cmdGetLoad->click(); };
  commands.writeSpice = [this] { cmdSpice->click(); };
  commands.setup = [this] { cmdSetup->click(); };
  commands.match = [this] { OpenMatch(); };
  commands.stagePart = [this] { OpenStagePart(); };
  commands.twoPortBlock = [this] { OpenTwoPort(); };
  commands.exit = [this] { cmdExit->click(); };
  commands.undoable = true;
  FollowHistory();
  std::vector<Key> keys = {
      {QKeySequence(Qt::CTRL | Qt::Key_O), "Get net", commands.getNet},
      {QKeySequence(Qt::CTRL | Qt::Key_S), "Save net", commands.saveNet},
      {QKeySequence(Qt::CTRL | Qt::Key_L), "Get freq/load: a load-data or Touchstone file", commands.getLoad},
      {QKeySequence(Qt::CTRL | Qt::Key_Comma), "Setup: line length unit and velocity factor", commands.setup},
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), "Write LTspice: the network as a SPICE deck",
       commands.writeSpice},
      {QKeySequence(Qt::CTRL | Qt::Key_M), "Match: compute a matching network for the load", commands.match},
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
       "Cable or transformer: put one into the selected stage", commands.stagePart},
      {QKeySequence(Qt::CTRL | Qt::Key_B), "Two-port from file: a measured or published .s2p block as a stage",
       commands.twoPortBlock}};
  for (Key& key : HistoryKeys(this)) keys.push_back(std::move(key));
  commands.keys = BindKeys(this, dialogs_, std::move(keys));
  SetMenuBar(BuildMenuBar(this, dialogs_, session_.Version, commands));
  SetStatusLine(new QLabel(this));
  FollowLayoutWithTab();
  // A part's boxes follow one another, then its buttons, before the rest of
  // the page: Tab from the value goes to the Q, not to the system impedance.
  QWidget* const partChain[] = {txtValue[0], txtValue[1], txtValue[2], txtValue[3], cmdAccept,
                                cmdDontAccept};
  for (std::size_t k = 1; k < std::size(partChain); ++k) setTabOrder(partChain[k - 1], partChain[k]);
  OpenDesignPage();
}

void DesignPage::PlaceControls() {
  Place(lblSystemZ, 500, 3200, 1700, 300);
  Place(txtSystemZ, 2200, 3200, 900, 300);
  Place(lblFrequency, 500, 3600, 1700, 300);
  Place(txtFrequency, 2200, 3600, 900, 330);
  Place(lblInductorQ, 500, 4000, 1700, 300);
  Place(txtInductorQ, 2200, 4000, 900, 300);
  Place(lblCapacitorQ, 500, 4400, 1700, 300);
  Place(txtCapacitorQ, 2200, 4400, 900, 300);
  Place(cmdAnalyze, 500, 5500, 1400, 300);
  Place(cmdCompact, 500, 5850, 1400, 300);
  Place(cmdSave, 500, 6200, 1400, 300);
  Place(cmdGetNet, 500, 6550, 1400, 300);
  Place(cmdExit, 500, 7600, 1400, 300);
  for (QPushButton* hidden : {cmdGetLoad, cmdEnterZ, cmdEnterFreq, cmdSetup, cmdSpice}) {
    hidden->hide();
  }
  Place(lblSelectElementToEdit, 3000, 2600, 3500, 300);
  Place(lblClickOnALibraryPart, 3500, 4900, 3500, 300);
  for (int i = 0; i < 4; ++i) {
    Place(lblValue[i], 5050, 3100 + 500 * i, 2200, i == 0 ? 330 : 300);
    Place(txtValue[i], 7380, 3050 + 500 * i, 1500, 330);
  }
  Place(cmdAccept, 9300, 4400, 1470, 330);
  Place(cmdDontAccept, 9300, 4750, 1470, 330);
  Place(lblRemove, 7000, 4300, 2000, 660);
}

void DesignPage::OpenDesignPage() {
  setWindowTitle(Q(DesignCaption(session_)));
  const DesignValueTexts texts = PrepareDesignValues(session_);
  WriteBox(txtCapacitorQ, texts.capacitorQ);
  WriteBox(txtInductorQ, texts.inductorQ);
  WriteBox(txtSystemZ, texts.systemZ);
  WriteBox(txtFrequency, texts.frequency);
  editor_.Open();
  ShowEditor();
}

// A value box that loses the focus while the page is being destroyed must
// not record typing on a page that is already half gone.
DesignPage::~DesignPage() {
  for (QLineEdit* box : {txtSystemZ, txtFrequency, txtCapacitorQ, txtInductorQ}) box->disconnect(this);
}

void DesignPage::ReopenDesignPage() {
  // The Analysis page's opening sequence runs once, as a visit would run it,
  // without showing it.
  AnalysisPage(session_, dialogs_).CloseByProgram();
  OpenDesignPage();
}

// Mirrors the editor's controls and drawing into the widgets.
void DesignPage::ShowEditor() {
  const EditorControls& c = editor_.controls;
  for (int i = 0; i < 4; ++i) {
    lblValue[i]->setText(Q(c.value[i].caption));
    lblValue[i]->setVisible(c.value[i].shown);
    if (txtValue[i]->text() != Q(c.value[i].text)) txtValue[i]->setText(Q(c.value[i].text));
    txtValue[i]->setVisible(c.value[i].shown);
  }
  cmdAccept->setVisible(c.acceptShown);
  cmdDontAccept->setVisible(c.dontAcceptShown);
  lblRemove->setVisible(c.removeShown);
  lblSelectElementToEdit->setVisible(c.selectHintShown);
  lblClickOnALibraryPart->setVisible(c.libraryHintShown);
  cmdAnalyze->setEnabled(c.analyzeEnabled);
  ShowMatchStatus(session_);
  editor_.Compose(Drawing());
  update();
}

void DesignPage::OnMouseDown(int, double x, double y) {
  const bool stageSelected = editor_.MouseDown(x, y);
  ShowEditor();
  // A cable or transformer has no value boxes on the page: its dialog opens
  // on it instead, and a library part can still replace it when it closes.
  const int16_t type = stageSelected ? session_.ElementType[editor_.EditStage] : int16_t{Empty};
  if (type == CoaxialCable || type == Transformer) OpenStagePart();
}

void DesignPage::Analyze() {
  const std::string typedSystemZ = txtSystemZ->text().toStdString();
  const std::string typedFrequency = txtFrequency->text().toStdString();
  std::string systemZ = typedSystemZ;
  std::string frequency = typedFrequency;
  // Only a value that was reset is written back: a box re-reads what is
  // written, and "-2M" read again would undo the frequency's absolute value.
  LimitDesignValues(session_, dialogs_, systemZ, frequency, [this](int box, const std::string& text) {
    WriteBox(box == 0 ? txtSystemZ : txtFrequency, text);
  });
  // Going to the Analysis page is no step; a value typed, or reset to its
  // limit, is one.
  if (typedBox_ == nullptr) typedBox_ = frequency != typedFrequency ? txtFrequency : txtSystemZ;
  RecordTyping();
  SwitchTo(new AnalysisPage(session_, dialogs_));
}

// A cancelled chooser leaves the network as it is, after the reader's message.
void DesignPage::GetNetwork() {
  // The chooser starts at the file a save wrote ("net3" was saved as "net3.SSF").
  const std::string chosen = dialogs_.ChooseOpenFile("Read Kalvex network file", kNetworkFileFilter,
                                                     NetworkFileName(session_.FileName));
  if (chosen.empty()) {
    ReadNetworkFile(session_, dialogs_, chosen);
    return;
  }
  const std::string nameBefore = session_.FileName;
  session_.FileName = chosen;
  ReadNetworkFile(session_, dialogs_, session_.FileName);
  ReopenDesignPage();
  if (SessionHistory* history = SessionHistory::Instance()) {
    history->RecordFileRead("Get net " + QFileInfo(Q(chosen)).fileName(), nameBefore);
  }
}

void DesignPage::GetLoad() {
  const std::string nameBefore = session_.FileName;
  GetLoadData(session_, dialogs_);
  OpenDesignPage();
  if (SessionHistory* history = SessionHistory::Instance()) history->RecordFileRead("Get freq/load", nameBefore);
}

void DesignPage::AcceptEdit() {
  const int stage = editor_.EditStage;
  const int16_t type = stage >= 1 && stage <= kLastStage ? session_.ElementType[stage] : int16_t{Empty};
  const QString step = stage == 0                    ? QString("Accept load")
                       : type == InsertPlaceholder ? QString("Insert at stage %1").arg(stage)
                                                   : QString("Accept stage %1 (%2)").arg(stage).arg(PartName(type));
  setFocus();
  editor_.Accept();
  ShowEditor();
  RecordStep(step);
  typedBox_ = nullptr;
}

QString DesignPage::TypedStep() const {
  if (typedBox_ == txtSystemZ) return "System Z " + Q(Trimmed(FormatSmallSI(session_.SystemZ))) + " ohms";
  if (typedBox_ == txtFrequency) return "Frequency " + HzText(session_.Frequency);
  if (typedBox_ == txtInductorQ) return "Inductor Q " + Q(Trimmed(FormatGeneral(session_.DefaultInductorQ)));
  return "Capacitor Q " + Q(Trimmed(FormatGeneral(session_.DefaultCapacitorQ)));
}

void DesignPage::RecordTyping() {
  // An open pick has put a half-made stage into the session.
  if (typedBox_ == nullptr || !editor_.controls.analyzeEnabled) return;
  RecordStep(TypedStep());
  typedBox_ = nullptr;
}

// A part picked and not accepted is no state: the restore that follows
// replaces it with a finished network and the editor opens afresh.
void DesignPage::FinishPendingEdit() { RecordTyping(); }

// The design value boxes show the restored values without reading their
// rounded texts back: 14.0014 MHz stays exact behind " 14.001 M".
void DesignPage::Reload() {
  const QSignalBlocker blockers[] = {QSignalBlocker(txtSystemZ), QSignalBlocker(txtFrequency),
                                     QSignalBlocker(txtInductorQ), QSignalBlocker(txtCapacitorQ)};
  typedBox_ = nullptr;
  OpenDesignPage();
}

void DesignPage::OpenMatch() {
  MatchDialog dialog(session_, dialogs_, this);
  if (dialog.exec() != QDialog::Accepted) return;
  ReopenDesignPage();
  RecordStep(dialog.AppliedStep());
}

void DesignPage::OpenStagePart() {
  RecordTyping();
  const int stage = editor_.EditStage;
  // The dialog works on finished stages: a part picked and not accepted goes
  // back first.
  if (!editor_.controls.analyzeEnabled) {
    editor_.DontAccept();
    ShowEditor();
  }
  StagePartDialog dialog(session_, dialogs_, stage, this);
  const int result = dialog.exec();
  if (result == StagePartDialog::kTwoPortChosen) return OpenTwoPort(dialog.Stage());
  if (result != QDialog::Accepted) return;
  editor_.Open();
  ShowEditor();
  RecordStep(dialog.AppliedStep());
}

void DesignPage::OpenTwoPort(int stage) {
  TwoPortDialog dialog(session_, dialogs_, stage, this);
  if (dialog.exec() != QDialog::Accepted) return;
  ReopenDesignPage();
  RecordStep(dialog.AppliedStep());
}

void DesignPage::OpenOptions() {
  SwitchTo(new OptionsPage(session_, dialogs_));
}

bool DesignPage::OnUserClose() {
  SaveSessionAndEnd(session_, dialogs_);
  return true;
}

}  // namespace kalvex
