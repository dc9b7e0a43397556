// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmFPBodyparts.h"

#include "factionprops/Catalogues.h"
#include "ui/VantelButton.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <utility>

namespace {

QComboBox* CatalogueCombo(QWidget* parent, const char* name, factionprops::Catalogue items) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr); // the entry holds what is typed, never a completed item
    for (const char* item : items)
        combo->addItem(QString::fromLatin1(item));
    // Empty until the user picks or types.
    combo->setCurrentIndex(-1);
    combo->setEditText(QString());
    return combo;
}

} // namespace

frmFPBodyparts::frmFPBodyparts(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmFPBodyparts"));
    setWindowTitle(QStringLiteral("Bodyparts"));
    setModal(false);
    // Unloaded on close, so that it opens empty the next time.
    setAttribute(Qt::WA_DeleteOnClose);

    Combo1 = CatalogueCombo(this, "Combo1", factionprops::HeadCatalogue());
    Combo2 = CatalogueCombo(this, "Combo2", factionprops::BodyCatalogue());
    Combo3 = CatalogueCombo(this, "Combo3", factionprops::CommAccessoryCatalogue());
    VantelButton1 = new VantelButton(this);
    VantelButton1->setObjectName(QStringLiteral("VantelButton1"));
    VantelButton1->setCaption(QStringLiteral("OK"));
    VantelButton1->setEnabled(false);
    VantelButton2 = new VantelButton(this);
    VantelButton2->setObjectName(QStringLiteral("VantelButton2"));
    VantelButton2->setCaption(QStringLiteral("Cancel"));

    auto* grid = new QGridLayout(this);
    // Each label is its combo's buddy: screen readers name the combo by it.
    int row = 0;
    for (const auto& [caption, combo] : {std::pair<const char*, QComboBox*>{"Head", Combo1},
                                         {"Body", Combo2},
                                         {"Accessory", Combo3}}) {
        auto* label = new QLabel(QString::fromLatin1(caption), this);
        label->setBuddy(combo);
        grid->addWidget(label, row, 0);
        grid->addWidget(combo, row++, 1);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(VantelButton1);
    buttons->addWidget(VantelButton2);
    grid->addLayout(buttons, 3, 0, 1, 2);

    connect(Combo1, &QComboBox::editTextChanged, this, &frmFPBodyparts::Combo1_Change);
    connect(Combo2, &QComboBox::editTextChanged, this, &frmFPBodyparts::Combo2_Change);
    connect(Combo3, &QComboBox::editTextChanged, this, &frmFPBodyparts::Combo3_Change);
    connect(Combo1, &QComboBox::activated, this, &frmFPBodyparts::Combo1_Click);
    connect(Combo2, &QComboBox::activated, this, &frmFPBodyparts::Combo2_Click);
    connect(Combo3, &QComboBox::activated, this, &frmFPBodyparts::Combo3_Click);
    connect(VantelButton1, &VantelButton::Click, this, &frmFPBodyparts::VantelButton1_Click);
    connect(VantelButton2, &VantelButton::Click, this, &frmFPBodyparts::VantelButton2_Click);
}

void frmFPBodyparts::UpdateOk() {
    VantelButton1->setEnabled(!Combo1->currentText().isEmpty() &&
                              !Combo2->currentText().isEmpty() && !Combo3->currentText().isEmpty());
}

void frmFPBodyparts::Combo1_Change() {
    UpdateOk();
}
void frmFPBodyparts::Combo2_Change() {
    UpdateOk();
}
void frmFPBodyparts::Combo3_Change() {
    UpdateOk();
}
void frmFPBodyparts::Combo1_Click() {
    Combo1_Change();
}
void frmFPBodyparts::Combo2_Click() {
    Combo2_Change();
}
void frmFPBodyparts::Combo3_Click() {
    Combo3_Change();
}

void frmFPBodyparts::VantelButton1_Click() {
    // The image button can still be clicked from code while disabled.
    if (!VantelButton1->isEnabled())
        return;
    emit BodypartChosen(Combo1->currentText() + QStringLiteral(", ") + Combo2->currentText() +
                        QStringLiteral(", ") + Combo3->currentText());
    close();
}

void frmFPBodyparts::VantelButton2_Click() {
    close();
}
