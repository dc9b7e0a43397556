// SPDX-License-Identifier: GPL-3.0-or-later
// The main window driven through its real widgets: the language switch across every page.
// The panels themselves have tests of their own. Modal boxes are answered by ScriptedDialogs.
#include "core/modFunctions.h"
#include "ui/Captions.h"
#include "ui/MatrixPage.h"
#include "ui/VantelButton.h"
#include "ui/support/FullDisk.h"
#include "ui/support/MainWindowFixture.h"

#include <QAccessible>
#include <QAction>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>
#include <filesystem>

namespace fs = std::filesystem;

class frmMainTest : public QObject, protected MainWindowFixture {
    Q_OBJECT

private:
    void Click(const char* button) { emit Get<VantelButton>(button)->Click(); }
    void Select(const QString& project) {
        const auto found = Get<QListWidget>("lstProjects")->findItems(project, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        Get<QListWidget>("lstProjects")->setCurrentItem(found.front());
    }
    void LoadProject(const std::string& name) {
        modFunctions::CreateProjectFolders(folder->path(), name);
        Click("VantelButton4");
        Select(QString::fromStdString(name));
        Click("VantelButton6");
    }

private slots:
    void init() {
        NewFolder();
        fs::create_directory((*folder) / "projects");
        OpenWindow();
    }
    void cleanup() { CloseWindow(); }

    // Every row of the captions table reaches exactly one control of the window, in both
    // languages and back; the import dialog, another window, keeps its own captions.
    void LanguageRoundTripOverTheCaptionsTable() {
        const auto read = [](QWidget* widget, const captions::Row& row) -> QString {
            switch (row.what) {
            case captions::Setting::ToolTipText:
                return widget->toolTip();
            case captions::Setting::PageCaption: {
                auto* tabs = qobject_cast<QTabWidget*>(widget);
                return tabs && row.page < tabs->count() ? tabs->tabText(row.page) : "<no page>";
            }
            case captions::Setting::ColumnCaption: // the main window's table holds none
                return QString("<column>");
            case captions::Setting::Question:
                return widget->property("question").toString();
            case captions::Setting::Caption:
                if (auto* button = qobject_cast<VantelButton*>(widget))
                    return button->Caption();
                if (auto* frame = qobject_cast<QGroupBox*>(widget))
                    return frame->title();
                [[fallthrough]];
            case captions::Setting::Text:
                return widget->property("text").toString();
            }
            return {};
        };
        const auto check = [&](captions::Language language, bool firstCaptions) {
            for (const captions::Row& row : captions::Table()) {
                QList<QWidget*> widgets;
                for (QWidget* widget :
                     window->findChildren<QWidget*>(QString::fromLatin1(row.control)))
                    if (widget->window() == window.get())
                        widgets << widget;
                // A row of a menu's action: its text, tool tip or question.
                const auto actions =
                    window->findChildren<QAction*>(QString::fromLatin1(row.control));
                if (widgets.isEmpty() && actions.size() == 1) {
                    const QAction* action = actions.front();
                    const QString shown = row.what == captions::Setting::Caption ? action->text()
                                          : row.what == captions::Setting::ToolTipText
                                              ? action->toolTip()
                                              : action->property("question").toString();
                    QCOMPARE(shown, QString::fromUtf8(language == captions::Language::German
                                                          ? row.german
                                                          : row.english));
                    continue;
                }
                QVERIFY2(widgets.size() == 1, row.control);
                QString expected = QString::fromUtf8(
                    language == captions::Language::German ? row.german : row.english);
                // Two controls start with a caption of their own until the first switch.
                if (firstCaptions && row.control == QByteArray("Label3"))
                    expected = "Gruppenname:";
                if (firstCaptions && row.control == QByteArray("SSTab2") && row.page == 4)
                    expected = "Formation";
                QVERIFY2(read(widgets[0], row) == expected,
                         qPrintable(QString("%1 page %2: ").arg(row.control).arg(row.page) +
                                    read(widgets[0], row) + " != " + expected));
            }
        };
        // Written out, so that a swapped language column in the table fails; a message that
        // has both languages follows the window's.
        const auto spot = [this](const char* exit, const char* voices, const char* slider,
                                 const char* notWritten) {
            dialogs->shown.clear();
            FullDisk full;
            window->findChild<MatrixPage*>()->ExportCsvTo(QString::fromStdString(*folder / "m.csv"),
                                                          full);
            QVERIFY(dialogs->shown.at(0).text.contains(notWritten));
            QCOMPARE(Get<VantelButton>("VantelButton1")->Caption(), QString(exit));
            QCOMPARE(Get<QTabWidget>("SSTab2")->tabText(1), QString(voices));
            QCOMPARE(QAccessible::queryAccessibleInterface(Get<QWidget>("Slider1"))
                         ->text(QAccessible::Name),
                     QString(slider));
        };

        check(captions::Language::German, true);
        spot("&Beenden", "Stimmen", "Scroll-Tempo", " konnte nicht geschrieben werden: ");
        fs::create_directories((*folder) / "data/emphaty/original_factions");
        LoadProject("P");
        Click("btnImport");
        auto* import = window->findChild<QDialog*>("frmImport");
        QVERIFY(import && import->isVisible());
        const auto importCaptions = [import] {
            QStringList shown;
            for (const VantelButton* button : import->findChildren<VantelButton*>())
                shown << button->Caption();
            return shown;
        };
        const QStringList ownCaptions = importCaptions();
        Get<QLineEdit>("txtdateiname")->setText("half-typed");
        Click("VantelButton2");
        check(captions::Language::English, false);
        spot("&Exit", "Voice", "Scroll-speed", "Could not write ");
        QCOMPARE(Get<QLineEdit>("txtdateiname")->text(), QString("Projectname"));
        QCOMPARE(importCaptions(), ownCaptions);
        Click("VantelButton2");
        check(captions::Language::German, false);
        spot("&Beenden", "Stimmen", "Scroll-Tempo", " konnte nicht geschrieben werden: ");
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMain_test.moc"
