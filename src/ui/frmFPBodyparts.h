// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The small "Bodyparts" dialog: a head, a body and a communication accessory put together
// into one body-part entry. It only builds the entry; the page that opened it stores it.
#include <QDialog>

class QComboBox;
class VantelButton;

class frmFPBodyparts : public QDialog {
    Q_OBJECT
public:
    explicit frmFPBodyparts(QWidget* parent = nullptr);

signals:
    // "<head>, <body>, <accessory>", as the three combos show it.
    void BodypartChosen(const QString& entry);

private slots:
    void Combo1_Change();
    void Combo2_Change();
    void Combo3_Change();
    void Combo1_Click();
    void Combo2_Click();
    void Combo3_Click();
    void VantelButton1_Click();
    void VantelButton2_Click();

private:
    // "OK" only while all three combos hold text.
    void UpdateOk();

    QComboBox* Combo1;
    QComboBox* Combo2;
    QComboBox* Combo3;
    VantelButton* VantelButton1;
    VantelButton* VantelButton2;
};
