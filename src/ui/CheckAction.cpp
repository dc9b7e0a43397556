#include "ui/CheckAction.h"

#include "core/names.h"
#include "factionprops/ListFiles.h"
#include "ui/Captions.h"
#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"
#include "ui/frmCheck.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTreeWidget>

namespace {

// The findings window speaks the language the button shows.
captions::Language LanguageOf(const VantelButton& button) {
    for (const captions::Row& row : captions::Table())
        if (button.objectName() == QLatin1String(row.control))
            return button.Caption() == QString::fromUtf8(row.english) ? captions::Language::English
                                                                      : captions::Language::German;
    return captions::Language::German;
}

const char* PickerOf(check::Store store) {
    switch (store) {
    case check::Store::Registry:
        return "lv_newfactions";
    case check::Store::Reputation:
        return "cboemphaty_group";
    case check::Store::FactionProps:
        return "cboFP_group";
    case check::Store::InitialWorld:
        return "cboInit_group";
    }
    return "";
}

// The tab of a list file on the faction-property page; -1 for other files.
int ListTabOf(std::string_view file) {
    const std::size_t slash = file.rfind('\\');
    const std::string_view name = slash == std::string_view::npos ? file : file.substr(slash + 1);
    int tab = 0;
    for (const factionprops::PickList list : factionprops::AllPickLists) {
        const std::string_view prefix = factionprops::ListPrefix(list);
        if (name.size() > prefix.size() &&
            names::EqualIgnoringCase(name.substr(0, prefix.size()), prefix))
            return tab;
        ++tab;
    }
    return -1;
}

} // namespace

CheckAction::CheckAction(Session& session_, Dialogs& dialogs_, VantelButton* btnCheck_,
                         QWidget* owner_)
    : QObject(owner_), session(session_), dialogs(dialogs_), btnCheck(btnCheck_), owner(owner_) {
    setObjectName(QStringLiteral("checkAction"));
    connect(btnCheck, &VantelButton::Click, this, &CheckAction::btnCheck_Click);
}

frmCheck* CheckAction::FindingsWindow() const {
    return window.data();
}

void CheckAction::btnCheck_Click() {
    if (session.ActiveProject.empty())
        return;
    std::vector<check::Finding> findings;
    try {
        findings = check::CheckProject(session.appDir, session.ActiveProject);
    } catch (const std::exception& error) {
        dialogs.ShowError(QStringLiteral("The project could not be checked.\r\n") +
                          Dialogs::Describe(error));
        return;
    }
    // A new check replaces the findings shown before, in a window at the same place.
    QRect place;
    if (window) {
        place = window->geometry();
        window->close();
    }
    window = new frmCheck(
        std::move(findings), text::ToQt(session.ActiveProject),
        [this](const check::Finding& finding) { ShowFinding(*owner, finding); },
        LanguageOf(*btnCheck), owner);
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (place.isValid())
        window->setGeometry(place);
    window->show();
    window->raise();
}

void ShowFinding(QWidget& mainWindow, const check::Finding& finding) {
    QWidget* picker = mainWindow.findChild<QWidget*>(QString::fromLatin1(PickerOf(finding.store)));
    if (!picker)
        return;
    if (auto* SSTab1 = mainWindow.findChild<QTabWidget*>(QStringLiteral("SSTab1")))
        for (int i = 0; i < SSTab1->count(); ++i)
            if (SSTab1->widget(i)->isAncestorOf(picker))
                SSTab1->setCurrentIndex(i);
    const QString faction = text::ToQt(finding.faction);
    if (auto* combo = qobject_cast<QComboBox*>(picker)) {
        const int index = combo->findText(faction, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index >= 0) {
            combo->setCurrentIndex(index);
            emit combo->activated(index); // loads the faction as the user's pick does
        }
    } else if (auto* list = qobject_cast<QTreeWidget*>(picker)) {
        const auto found = list->findItems(faction, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (!found.isEmpty()) {
            list->setCurrentItem(found.front());
            list->scrollToItem(found.front());
            emit list->itemClicked(found.front(), 0);
        }
    }
    if (const int tab = ListTabOf(finding.file); tab >= 0)
        if (auto* SSTab2 = mainWindow.findChild<QTabWidget*>(QStringLiteral("SSTab2")))
            SSTab2->setCurrentIndex(tab);
    mainWindow.raise();
    mainWindow.activateWindow();
}
