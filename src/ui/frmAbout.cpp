// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmAbout.h"

#include <QLabel>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace {

const char* const CreatingAFaction =
    "A faction needs a nickname, the name the game knows it by, and a group, the name you "
    "recognise it by.\n\n"
    "1. Create a project on the first page and load it.\n"
    "2. Type the nickname and the description on the registry panel and press New/Save, or "
    "import one of the original factions.\n"
    "3. Give the faction its reputation values on the page Emphaty.ini, its properties and pick "
    "lists on Faction_Prop.ini and its starting reputations on Initialworld.ini. Every change is "
    "saved the moment you make it.\n"
    "4. Press the compile button of each page; the game files land in the project's folder "
    "\"compiled\".\n"
    "5. Build the install script on the page XML-Script and copy it next to your mod.";

const char* const SpecialThanks =
    "To everyone who tested the early builds, reported what broke and suggested what was "
    "missing; to the modding community for years of shared knowledge about the game's files; "
    "and to the authors of the faction write-ups that taught us how reputations really work.";

// Named for screen readers by the caption of the tab that holds it.
QTextBrowser* Notice(const char* text, const QString& caption) {
    auto* view = new QTextBrowser;
    view->setPlainText(QString::fromUtf8(text));
    view->setAccessibleName(caption);
    return view;
}

} // namespace

frmAbout::frmAbout(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("Orrindel 2.0 || Halvex"));
    setAttribute(Qt::WA_DeleteOnClose);

    Label1 = new QLabel(
        QStringLiteral("Orrindel 2.0 beta 2\nFaction editor by Halvex\n(click here to close)"),
        this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setCursor(Qt::PointingHandCursor);
    QFont big = Label1->font();
    big.setPointSize(big.pointSize() + 3);
    big.setBold(true);
    Label1->setFont(big);
    Label1->installEventFilter(this);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    const QString creating = QStringLiteral("Creating a Faction");
    const QString thanks = QStringLiteral("Special Thanks");
    SSTab1->addTab(Notice(CreatingAFaction, creating), creating);
    SSTab1->addTab(Notice(SpecialThanks, thanks), thanks);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(SSTab1);
    resize(460, 360);
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Label1 && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        Label1_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmAbout::Label1_Click() {
    close();
}
