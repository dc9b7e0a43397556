// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MatrixPage.h"

#include "core/platform.h"
#include "ui/Dialogs.h"
#include "ui/MatrixModel.h"
#include "ui/MatrixPainting.h"
#include "ui/Named.h"
#include "ui/ReputationQuestions.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QShowEvent>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <set>

namespace {

// A small square of the legend, painted in the colour it explains.
QLabel* Swatch(const QColor& colour, QWidget* parent) {
    auto* swatch = new QLabel(parent);
    swatch->setFixedSize(14, 14);
    swatch->setStyleSheet(
        QStringLiteral("background-color: %1; border: 1px solid gray;").arg(colour.name()));
    return swatch;
}

std::string Bytes(const QVariant& data) {
    const QByteArray bytes = data.toByteArray();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

MatrixPage::MatrixPage(Session& session, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), session(session), dialogs(dialogs) {
    optMatrixEmphaty = Named(new QRadioButton(QStringLiteral("Sympathiewerte (Emphaty.ini)"), this),
                             "optMatrixEmphaty");
    optMatrixInitialworld =
        Named(new QRadioButton(QStringLiteral("Startreputationen (Initialworld.ini)"), this),
              "optMatrixInitialworld");
    optMatrixEmphaty->setChecked(true);
    lblMatrixGroup = Named(new QLabel(QStringLiteral("Gruppe"), this), "lblMatrixGroup");
    cboMatrixGroup = Named(new QComboBox(this), "cboMatrixGroup");
    cboMatrixGroup->setMinimumContentsLength(14);
    cboMatrixGroup->addItem(QStringLiteral("*"));
    lblMatrixFilter =
        Named(new QLabel(QStringLiteral("Nickname enthält"), this), "lblMatrixFilter");
    txtMatrixFilter = Named(new QLineEdit(this), "txtMatrixFilter");
    txtMatrixFilter->setMinimumWidth(160);
    lblMatrixGroup->setBuddy(cboMatrixGroup);
    lblMatrixFilter->setBuddy(txtMatrixFilter);

    model = new MatrixModel(this);
    delegate = new MatrixDelegate(*model, this);
    grdMatrix = Named(new QTableView(this), "grdMatrix");
    grdMatrix->setAccessibleName(QStringLiteral("Matrix"));
    grdMatrix->setHorizontalHeader(new NicknameHeader(grdMatrix));
    grdMatrix->setModel(model);
    grdMatrix->setItemDelegate(delegate);
    grdMatrix->setSelectionMode(QAbstractItemView::SingleSelection);
    grdMatrix->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdMatrix->setWordWrap(false);
    grdMatrix->setMouseTracking(true);
    grdMatrix->setGridStyle(Qt::SolidLine);
    // Fixed sections: the headers stay in place while the cells scroll, at no layout cost.
    for (QHeaderView* header : {grdMatrix->horizontalHeader(), grdMatrix->verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setHighlightSections(true);
    }
    grdMatrix->horizontalHeader()->setDefaultSectionSize(matrixPicture::CellWidth);
    grdMatrix->verticalHeader()->setDefaultSectionSize(matrixPicture::CellHeight);

    lblMatrixCell = Named(new QLabel(this), "lblMatrixCell");
    lblMatrixCell->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblMatrixHostile = Named(new QLabel(QStringLiteral("-1 feindlich"), this), "lblMatrixHostile");
    lblMatrixFriendly =
        Named(new QLabel(QStringLiteral("+1 freundlich"), this), "lblMatrixFriendly");
    lblMatrixOutOfRange =
        Named(new QLabel(QStringLiteral("außerhalb -1..1"), this), "lblMatrixOutOfRange");
    lblMatrixNotANumber =
        Named(new QLabel(QStringLiteral("keine Zahl"), this), "lblMatrixNotANumber");
    lblMatrixMissing =
        Named(new QLabel(QStringLiteral("nicht gespeichert"), this), "lblMatrixMissing");
    model->SetDescribe([this](matrix::Kind kind) {
        switch (kind) {
        case matrix::Kind::OutOfRange:
            return lblMatrixOutOfRange->text();
        case matrix::Kind::NotANumber:
            return lblMatrixNotANumber->text();
        case matrix::Kind::Missing:
            return lblMatrixMissing->text();
        case matrix::Kind::Number:
            break;
        }
        return QString();
    });

    chkMatrixAsymmetric =
        Named(new QCheckBox(QStringLiteral("Asymmetrische Paare hervorheben"), this),
              "chkMatrixAsymmetric");
    chkMatrixForceRep =
        Named(new QCheckBox(QStringLiteral("Force-reputation"), this), "chkMatrixForceRep");
    chkMatrixForceRep->setChecked(true);
    btnMatrixCsv = Named(new VantelButton(this), "btnMatrixCsv");
    btnMatrixCsv->setCaption(QStringLiteral("CSV exportieren"));
    btnMatrixPng = Named(new VantelButton(this), "btnMatrixPng");
    btnMatrixPng->setCaption(QStringLiteral("PNG exportieren"));

    auto* top = new QHBoxLayout;
    top->addWidget(optMatrixEmphaty);
    top->addWidget(optMatrixInitialworld);
    top->addStretch();
    auto* filter = new QHBoxLayout;
    filter->addWidget(lblMatrixGroup);
    filter->addWidget(cboMatrixGroup);
    filter->addSpacing(12);
    filter->addWidget(lblMatrixFilter);
    filter->addWidget(txtMatrixFilter);
    filter->addStretch();

    auto* legend = new QHBoxLayout;
    legend->addWidget(lblMatrixCell, 1);
    const auto addLegend = [&](const QColor& colour, QLabel* label) {
        legend->addWidget(Swatch(colour, this));
        legend->addWidget(label);
    };
    addLegend(matrixColours::Scale(-1.0), lblMatrixHostile);
    addLegend(matrixColours::Scale(1.0), lblMatrixFriendly);
    addLegend(matrixColours::Background({matrix::Kind::OutOfRange, 0.0}, false),
              lblMatrixOutOfRange);
    addLegend(matrixColours::Background({matrix::Kind::NotANumber, 0.0}, false),
              lblMatrixNotANumber);
    addLegend(matrixColours::Background({matrix::Kind::Missing, 0.0}, false), lblMatrixMissing);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(chkMatrixAsymmetric);
    bottom->addWidget(chkMatrixForceRep);
    bottom->addStretch();
    bottom->addWidget(btnMatrixCsv);
    bottom->addWidget(btnMatrixPng);

    auto* page = new QVBoxLayout(this);
    page->addLayout(top);
    page->addLayout(filter);
    page->addWidget(grdMatrix, 1);
    page->addLayout(legend);
    page->addLayout(bottom);

    connect(optMatrixEmphaty, &QRadioButton::clicked, this, &MatrixPage::optMatrixEmphaty_Click);
    connect(optMatrixInitialworld, &QRadioButton::clicked, this,
            &MatrixPage::optMatrixInitialworld_Click);
    connect(cboMatrixGroup, &QComboBox::activated, this, &MatrixPage::cboMatrixGroup_Click);
    connect(txtMatrixFilter, &QLineEdit::textChanged, this, &MatrixPage::txtMatrixFilter_Change);
    connect(chkMatrixAsymmetric, &QCheckBox::toggled, this, &MatrixPage::chkMatrixAsymmetric_Click);
    connect(grdMatrix, &QTableView::doubleClicked, this, &MatrixPage::grdMatrix_DblClick);
    grdMatrix->installEventFilter(this);
    connect(grdMatrix, &QTableView::entered, this, &MatrixPage::grdMatrix_MouseMove);
    connect(btnMatrixCsv, &VantelButton::Click, this, &MatrixPage::btnMatrixCsv_Click);
    connect(btnMatrixPng, &VantelButton::Click, this, &MatrixPage::btnMatrixPng_Click);
}

// ---- registry ----

void MatrixPage::ClearFactions() {
    entries_.clear();
    model->Reset(matrix::Matrix());
    // The group picker keeps its choice until the factions are added again.
}

bool MatrixPage::ChooseFaction(const std::string& nickname) {
    const QString wanted = text::ToQt(nickname);
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->Nickname(row) != wanted)
            continue;
        const QModelIndex index = model->index(row, 0);
        grdMatrix->setCurrentIndex(index);
        grdMatrix->scrollTo(index);
        return true;
    }
    return false;
}

void MatrixPage::AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) {
    entries_.insert(entries_.end(), entries.begin(), entries.end());
    const std::string chosen = Bytes(cboMatrixGroup->currentData());
    std::set<std::string> groups;
    for (const auto& entry : entries_)
        groups.insert(entry.group);
    cboMatrixGroup->clear();
    cboMatrixGroup->addItem(QStringLiteral("*")); // every group
    for (const std::string& group : groups)
        cboMatrixGroup->addItem(text::ToQt(group),
                                QByteArray(group.data(), static_cast<qsizetype>(group.size())));
    if (!chosen.empty() && groups.contains(chosen))
        cboMatrixGroup->setCurrentText(text::ToQt(chosen));
    // Hidden pages read their store when they are shown.
    if (isVisible())
        Reload();
}

// ---- reading ----

matrix::Store MatrixPage::CurrentStore() const {
    return optMatrixInitialworld->isChecked() ? matrix::Store::InitialWorld
                                              : matrix::Store::Emphaty;
}

void MatrixPage::Reload() {
    std::vector<std::string> factions;
    factions.reserve(entries_.size());
    for (const auto& entry : entries_)
        factions.push_back(entry.nickname);
    std::optional<matrix::Matrix> data;
    if (!session.ActiveProject.empty()) {
        dialogs.Attempt(
            [&] { data = matrix::Load(CurrentStore(), session.ProjectPath(), factions); },
            [](const std::exception& error) {
                return QStringLiteral("The matrix could not be read: ") + Dialogs::Describe(error);
            });
    }
    // Without a project (or after a failure) the factions are shown with nothing stored.
    model->Reset(data ? std::move(*data) : matrix::Matrix(factions));
    ApplyFilter();
}

void MatrixPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The other pages may have changed the store since it was last shown.
    if (!event->spontaneous())
        Reload();
}

bool MatrixPage::eventFilter(QObject* watched, QEvent* event) {
    // Enter edits the current cell as a double-click does, for those who use the keyboard.
    if (watched == grdMatrix && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            grdMatrix_DblClick(grdMatrix->currentIndex());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void MatrixPage::ApplyFilter() {
    std::vector<std::string> nicknames;
    std::vector<std::string> groups;
    nicknames.reserve(entries_.size());
    groups.reserve(entries_.size());
    for (const auto& entry : entries_) {
        nicknames.push_back(entry.nickname);
        groups.push_back(entry.group);
    }
    if (model->Data().Size() != entries_.size())
        return; // not read yet
    model->SetShown(matrix::Filter(nicknames, groups, Bytes(cboMatrixGroup->currentData()),
                                   text::ToFile(txtMatrixFilter->text())));
    FitHeaders();
}

void MatrixPage::FitHeaders() {
    const int extent = matrixPicture::HeaderExtent(*model, grdMatrix->fontMetrics());
    grdMatrix->horizontalHeader()->setFixedHeight(extent);
    grdMatrix->verticalHeader()->setFixedWidth(extent);
}

// ---- handlers ----

void MatrixPage::optMatrixEmphaty_Click() {
    Reload();
}

void MatrixPage::optMatrixInitialworld_Click() {
    Reload();
}

void MatrixPage::cboMatrixGroup_Click() {
    ApplyFilter();
}

void MatrixPage::txtMatrixFilter_Change() {
    ApplyFilter();
}

void MatrixPage::chkMatrixAsymmetric_Click() {
    model->SetHighlightAsymmetric(chkMatrixAsymmetric->isChecked());
}

void MatrixPage::grdMatrix_MouseMove(const QModelIndex& index) {
    lblMatrixCell->setText(index.isValid() ? model->BothDirections(index.row(), index.column())
                                                 .replace(QLatin1Char('\n'), QStringLiteral("    "))
                                           : QString());
}

void MatrixPage::grdMatrix_DblClick(const QModelIndex& index) {
    if (!index.isValid() || session.ActiveProject.empty())
        return;
    const matrix::Store store = CurrentStore();
    // The same question as the page that owns the store.
    const QString v = store == matrix::Store::Emphaty
                          ? reputationQuestions::AskEmpathyRate(dialogs)
                          : reputationQuestions::AskStartingReputation(dialogs);
    if (v.isEmpty())
        return;
    const bool stored = dialogs.Attempt({}, [&] {
        model->Edit(store, session.ProjectPath(), index.row(), index.column(), text::ToFile(v),
                    chkMatrixForceRep->isChecked());
    });
    if (!stored)
        return;
    grdMatrix_MouseMove(index);
}

// ---- export ----

void MatrixPage::btnMatrixCsv_Click() {
    const QString path =
        QFileDialog::getSaveFileName(this, btnMatrixCsv->Caption(), QStringLiteral("matrix.csv"),
                                     QStringLiteral("CSV (*.csv);;All files (*)"));
    if (!path.isEmpty())
        ExportCsvTo(path);
}

void MatrixPage::btnMatrixPng_Click() {
    const QString path =
        QFileDialog::getSaveFileName(this, btnMatrixPng->Caption(), QStringLiteral("matrix.png"),
                                     QStringLiteral("PNG (*.png);;All files (*)"));
    if (!path.isEmpty())
        ExportPngTo(path);
}

bool MatrixPage::ExportCsvTo(const QString& path, platform::FileCalls& calls) {
    return WriteExport(path, matrix::Formatted(model->Data(), model->Shown(), matrix::Format::Csv),
                       calls);
}

bool MatrixPage::ExportPngTo(const QString& path, platform::FileCalls& calls) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QImage picture =
        matrixPicture::Picture(*model, *delegate, grdMatrix->font(), grdMatrix->palette());
    if (!picture.save(&buffer, "PNG")) {
        dialogs.ShowError(QStringLiteral("The picture %1 could not be made.").arg(path));
        return false;
    }
    return WriteExport(
        path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())), calls);
}

bool MatrixPage::WriteExport(const QString& path, std::string_view bytes,
                             platform::FileCalls& calls) {
    // A path the user picked on this machine: spelled in the file system's own encoding.
    return dialogs.Attempt([&] { platform::ReplaceFile(text::CorePath(path), bytes, calls); },
                           dialogs.CouldNotWrite(QDir::toNativeSeparators(path)));
}
