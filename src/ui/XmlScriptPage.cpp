// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/XmlScriptPage.h"

#include "core/platform.h"
#include "script/XmlScript.h"
#include "ui/Dialogs.h"
#include "ui/Text.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"
#include "ui/frmWorking.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLineEdit>
#include <QTextEdit>
#include <QTimer>
#include <algorithm>
#include <exception>

namespace {

// Page geometry in twips.
constexpr int kMargin = 120;
constexpr int kButtonWidth = 1905; // 127 px, the button pictures' own size
constexpr int kButtonHeight = 330;
constexpr int kButtonGap = 90;
constexpr int kFrameTop = 510;
constexpr int kFrameClosed = 135;
constexpr int kFrameOpen = 1335;
constexpr int kFrameStep = 20;
constexpr int kBoxGap = 60; // between Frame3 and rtfXML
constexpr int kFieldHeight = 285;

QLineEdit* NewField(const char* name, const QString& text, const QString& tip, QWidget* parent) {
    auto* field = new QLineEdit(text, parent);
    field->setObjectName(QLatin1String(name));
    field->setToolTip(tip);
    field->setAccessibleName(tip);
    field->setPlaceholderText(tip);
    return field;
}

} // namespace

XmlScriptPage::XmlScriptPage(Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), dialogs_(dialogs) {
    Check1 = new QCheckBox(QStringLiteral("Header benutzen"), this);
    Check1->setObjectName(QStringLiteral("Check1"));

    btnCreateXML = new VantelButton(this);
    btnCreateXML->setObjectName(QStringLiteral("btnCreateXML"));
    btnCreateXML->setCaption(QStringLiteral("Generiere XML"));
    btnCopyXML = new VantelButton(this);
    btnCopyXML->setObjectName(QStringLiteral("btnCopyXML"));
    btnCopyXML->setCaption(QStringLiteral("Kopieren"));
    btnSaveXML = new VantelButton(this);
    btnSaveXML->setObjectName(QStringLiteral("btnSaveXML"));
    btnSaveXML->setCaption(QStringLiteral("Speichern unter..."));

    Frame3 = new QGroupBox(QStringLiteral("Header Einstellungen"), this);
    Frame3->setObjectName(QStringLiteral("Frame3"));
    const script::ScriptHeader initial;
    txtHeadModName = NewField("txtHeadModName", text::ToQt(initial.name),
                              QStringLiteral("Name der Mod"), Frame3);
    txtHeadModVersion = NewField("txtHeadModVersion", text::ToQt(initial.scriptVersion),
                                 QStringLiteral("Scriptversion"), Frame3);
    txtHeadModURL =
        NewField("txtHeadModURL", text::ToQt(initial.modUrl), QStringLiteral("Homepage"), Frame3);
    txtHeadModAutor =
        NewField("txtHeadModAutor", text::ToQt(initial.author), QStringLiteral("Autor"), Frame3);
    txtHeadModDescr = NewField("txtHeadModDescr", text::ToQt(initial.description),
                               QStringLiteral("Beschreibung der Mod"), Frame3);
    // The fields have no labels: their hints name them, in whichever language is shown.
    for (QLineEdit* field :
         {txtHeadModName, txtHeadModVersion, txtHeadModURL, txtHeadModAutor, txtHeadModDescr})
        field->installEventFilter(this);

    rtfXML = new QTextEdit(this);
    rtfXML->setObjectName(QStringLiteral("rtfXML"));
    rtfXML->setAcceptRichText(false);
    rtfXML->setLineWrapMode(QTextEdit::NoWrap);
    rtfXML->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    rtfXML->setAccessibleName(QStringLiteral("XML"));

    Timer5 = new QTimer(this);
    Timer5->setObjectName(QStringLiteral("Timer5"));
    Timer5->setInterval(1);
    Timer6 = new QTimer(this);
    Timer6->setObjectName(QStringLiteral("Timer6"));
    Timer6->setInterval(1);

    // Starting geometry; Layout() fits the widths and rtfXML's height to the page.
    twips::Place(Check1, kMargin, 150, 2400, 285);
    twips::Place(Frame3, kMargin, kFrameTop, 0, kFrameClosed);
    Frame3->hide();
    twips::Place(rtfXML, kMargin, kFrameTop + kFrameClosed + kBoxGap, 0, 0);
    Layout();

    connect(btnCreateXML, &VantelButton::Click, this, &XmlScriptPage::btnCreateXML_Click);
    connect(btnCopyXML, &VantelButton::Click, this, &XmlScriptPage::btnCopyXML_Click);
    connect(btnSaveXML, &VantelButton::Click, this, &XmlScriptPage::btnSaveXML_Click);
    connect(Check1, &QCheckBox::toggled, this, &XmlScriptPage::Check1_Click);
    connect(Timer5, &QTimer::timeout, this, &XmlScriptPage::Timer5_Timer);
    connect(Timer6, &QTimer::timeout, this, &XmlScriptPage::Timer6_Timer);
}

void XmlScriptPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Layout();
}

// Fits everything to the page's size. Frame3's height and rtfXML's top belong to the
// slide and are kept; rtfXML fills the page below its top.
void XmlScriptPage::Layout() {
    const int pageWidth = width() * twips::PerPixel;
    const int pageHeight = height() * twips::PerPixel;
    const int innerWidth = std::max(0, pageWidth - 2 * kMargin);

    int buttonLeft = pageWidth - kMargin - kButtonWidth;
    for (VantelButton* button : {btnCreateXML, btnSaveXML, btnCopyXML}) {
        twips::Place(button, buttonLeft, 90, kButtonWidth, kButtonHeight);
        buttonLeft -= kButtonWidth + kButtonGap;
    }

    twips::Place(Frame3, kMargin, kFrameTop, innerWidth, twips::Height(Frame3));
    const int split = innerWidth * 3 / 5;
    const int wide = std::max(0, split - kMargin - 90);
    const int narrow = std::max(0, innerWidth - split - kMargin);
    twips::Place(txtHeadModName, kMargin, 300, wide, kFieldHeight);
    twips::Place(txtHeadModVersion, split, 300, narrow, kFieldHeight);
    twips::Place(txtHeadModURL, kMargin, 630, wide, kFieldHeight);
    twips::Place(txtHeadModAutor, split, 630, narrow, kFieldHeight);
    twips::Place(txtHeadModDescr, kMargin, 960, std::max(0, innerWidth - 2 * kMargin),
                 kFieldHeight);

    const int boxTop = twips::Top(rtfXML);
    twips::Place(rtfXML, kMargin, boxTop, innerWidth, std::max(0, pageHeight - boxTop - kMargin));
}

bool XmlScriptPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTipChange) {
        auto* field = static_cast<QLineEdit*>(watched);
        field->setAccessibleName(field->toolTip());
        field->setPlaceholderText(field->toolTip());
    }
    return QWidget::eventFilter(watched, event);
}

void XmlScriptPage::SetScriptText(const QString& text) {
    QString lines = text;
    rtfXML->setPlainText(lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

QString XmlScriptPage::ScriptText() const {
    return rtfXML->toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

void XmlScriptPage::btnCreateXML_Click() {
    script::ScriptHeader header;
    if (Check1->isChecked()) {
        // A character that Windows-1252 lacks is refused, naming the field, as the command
        // line refuses it, rather than turned into "?" without a word.
        for (const auto& [field, value] : {std::pair{txtHeadModName, &header.name},
                                           {txtHeadModVersion, &header.scriptVersion},
                                           {txtHeadModURL, &header.modUrl},
                                           {txtHeadModAutor, &header.author},
                                           {txtHeadModDescr, &header.description}}) {
            auto bytes = text::ToFileExact(field->text());
            if (!bytes) {
                dialogs_.ShowError(QStringLiteral("The field \"%1\" holds a character outside "
                                                  "Windows-1252; no script was made.")
                                       .arg(field->toolTip()));
                return;
            }
            *value = std::move(*bytes);
        }
    }
    if (!working_)
        working_ = new frmWorking(this);
    working_->show();
    QCoreApplication::processEvents(); // let it be drawn before the work

    SetScriptText(QString());
    SetScriptText(text::ToQt(script::BuildScript(Check1->isChecked() ? &header : nullptr)));

    working_->close();
}

void XmlScriptPage::Check1_Click() {
    if (Check1->isChecked())
        Timer6->start();
    else
        Timer5->start();
}

void XmlScriptPage::Timer6_Timer() {
    Check1->setEnabled(false);
    Frame3->show();
    twips::Place(Frame3, twips::Left(Frame3), twips::Top(Frame3), twips::Width(Frame3),
                 twips::Height(Frame3) + kFrameStep);
    twips::Place(rtfXML, twips::Left(rtfXML), twips::Top(rtfXML) + kFrameStep, twips::Width(rtfXML),
                 twips::Height(rtfXML) - kFrameStep);
    if (twips::Height(Frame3) == kFrameOpen) {
        Check1->setEnabled(true);
        Timer6->stop();
    }
}

void XmlScriptPage::Timer5_Timer() {
    Check1->setEnabled(false);
    Frame3->show();
    twips::Place(Frame3, twips::Left(Frame3), twips::Top(Frame3), twips::Width(Frame3),
                 twips::Height(Frame3) - kFrameStep);
    twips::Place(rtfXML, twips::Left(rtfXML), twips::Top(rtfXML) - kFrameStep, twips::Width(rtfXML),
                 twips::Height(rtfXML) + kFrameStep);
    if (twips::Height(Frame3) <= kFrameClosed) {
        Frame3->hide();
        Check1->setEnabled(true);
        Timer5->stop();
    }
}

void XmlScriptPage::btnCopyXML_Click() {
    QGuiApplication::clipboard()->setText(ScriptText());
}

void XmlScriptPage::btnSaveXML_Click() {
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save as..."),
                                                      QStringLiteral("script.xml"),
                                                      QStringLiteral("XML (*.xml);;All files (*)"));
    if (!path.isEmpty())
        SaveScriptTo(path);
}

bool XmlScriptPage::SaveScriptTo(const QString& path, platform::FileCalls& calls) {
    // A path the user picked on this machine: spelled in the file system's own encoding.
    const std::string file = text::CorePath(path);
    return dialogs_.Attempt([&] { platform::ReplaceFile(file, text::ToFile(ScriptText()), calls); },
                            dialogs_.CouldNotWrite(QDir::toNativeSeparators(path)));
}
