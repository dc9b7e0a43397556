// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "Emphaty.ini" page: a faction's four event values, its empathy rates toward every
// registered faction, and the compile button for compiled\emphaty.ini. The controls are the
// only state; every change goes to disk in the handler that makes it.
#include "ui/RegistryView.h"

#include <QWidget>
#include <array>
#include <string>

class Session;
class Dialogs;
class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QTreeWidget;
class VantelButton;

class ReputationPage : public QWidget, public RegistryView {
    Q_OBJECT
public:
    ReputationPage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);
    void ClearFactions() override;
    void AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) override;
    bool ChooseFaction(const std::string& nickname) override;

private slots:
    void cboemphaty_group_Click();
    void Combo1_Change();
    void Combo2_Change();
    void Combo3_Change();
    void Combo4_Change();
    void Combo1_Click();
    void Combo2_Click();
    void Combo3_Click();
    void Combo4_Click();
    void lv_emphaty_DblClick();
    void btnEmphatySave_Click();

private:
    // The chosen faction's nickname as file bytes; "" when none is chosen.
    std::string ChosenFaction() const;
    void StoreEvent(std::size_t event);
    // With no faction chosen the event values show their default and take no edits.
    void cboemphaty_group_Chosen(int index);
    std::string ProjectFolder() const;

    Session& session;
    Dialogs& dialogs;

    QLabel* Label3;
    QComboBox* cboemphaty_group;
    QLabel* lbl_emphaty_object_destruction;
    QLabel* lbl_emphaty_rms;
    QLabel* lbl_emphaty_rmf;
    QLabel* lbl_emphaty_rma;
    QComboBox* Combo1;
    QComboBox* Combo2;
    QComboBox* Combo3;
    QComboBox* Combo4;
    std::array<QComboBox*, 4> eventCombos;
    QLabel* lblEmphatyList;
    QTreeWidget* lv_emphaty;
    VantelButton* btnEmphatySave;
    QLabel* lblAktuellEmp;
    QProgressBar* pgEmphaty1;
    QLabel* lblGesamtEmp;
    QProgressBar* pgEmphaty2;
    QCheckBox* chkForceREP;
};
