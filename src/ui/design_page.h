#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>

#include "design/network_editor.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"

namespace kalvex {

// The Design page: the schematic over the parts library, the network editor's
// boxes, the design values (system impedance, frequency, default Qs) and the
// ways to the Analysis page, the network files and the exit dialog. Its close
// box saves the last session and ends the program.
class DesignPage : public Page {
  Q_OBJECT

 public:
  DesignPage(Session& session, Dialogs& dialogs);
  ~DesignPage() override;

  // Rebuilds the page from the session, as after reading a network.
  void ReopenDesignPage();

  QLabel* lblSystemZ;
  QLineEdit* txtSystemZ;
  QLabel* lblFrequency;
  QLineEdit* txtFrequency;
  QLabel* lblInductorQ;
  QLineEdit* txtInductorQ;
  QLabel* lblCapacitorQ;
  QLineEdit* txtCapacitorQ;
  QPushButton* cmdAnalyze;
  QPushButton* cmdCompact;
  QPushButton* cmdSave;
  QPushButton* cmdGetNet;
  QPushButton* cmdExit;
  QPushButton* cmdGetLoad;
  QPushButton* cmdEnterZ;
  QPushButton* cmdEnterFreq;
  QPushButton* cmdSetup;
  QPushButton* cmdSpice;

  QLabel* lblSelectElementToEdit;
  QLabel* lblClickOnALibraryPart;
  std::array<QLabel*, 4> lblValue;    // lblValue1..4
  std::array<QLineEdit*, 4> txtValue; // txtValue1..4
  QPushButton* cmdAccept;
  QPushButton* cmdDontAccept;
  QLabel* lblRemove;

  NetworkEditor& Editor() { return editor_; }

 protected:
  void OnMouseDown(int button, double x, double y) override;
  void OpenMatch();
  void OpenStagePart();
  void OpenTwoPort(int stage = 0);
  void FinishPendingEdit() override;
  void Reload() override;
  bool OnUserClose() override;

 private:
  void OpenDesignPage();
  void PlaceControls();
  void ShowEditor();
  void Analyze();
  void GetNetwork();
  void GetLoad();
  void OpenOptions();
  void AcceptEdit();
  // A design value typed into its box is a step once typing ends there, or
  // with the next step when a part pick is still open.
  void RecordTyping();
  QString TypedStep() const;

  Session& session_;
  Dialogs& dialogs_;
  NetworkEditor editor_;
  QLineEdit* typedBox_ = nullptr;  // the design value typed and not yet recorded
};

}  // namespace kalvex
