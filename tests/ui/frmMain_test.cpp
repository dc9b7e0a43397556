// The main window driven through its real widgets: the top row, the way between the
// project manager and the faction pages, and the language switch across every page. The
// panels themselves have tests of their own. Modal boxes are answered by ScriptedDialogs.
#include "core/modFunctions.h"
#include "ui/Captions.h"
#include "ui/MatrixPage.h"
#include "ui/VantelButton.h"
#include "ui/support/FullDisk.h"
#include "ui/support/MainWindowFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>

namespace fs = std::filesystem;

class frmMainTest : public QObject, protected MainWindowFixture {
    Q_OBJECT

private:
    QTimer* Timer(const char* name) { return Get<QTimer>(name); }
    void Click(const char* button) { emit Get<VantelButton>(button)->Click(); }
    // Fires a timer's handler until the timer stops itself; returns the number of ticks.
    int RunTimer(const char* timer) {
        const QByteArray handler = QByteArray(timer) + "_Timer";
        int ticks = 0;
        while (Timer(timer)->isActive() && ticks < 10000) {
            // The handler belongs to the panel or animation that owns the timer.
            if (!QMetaObject::invokeMethod(Timer(timer)->parent(), handler.constData()))
                qFatal("no handler %s", handler.constData());
            ++ticks;
        }
        return ticks;
    }
    QStringList Projects() {
        QStringList names;
        for (int i = 0; i < Get<QListWidget>("lstProjects")->count(); ++i)
            names << Get<QListWidget>("lstProjects")->item(i)->text();
        return names;
    }
    void Select(const QString& project) {
        const auto found = Get<QListWidget>("lstProjects")->findItems(project, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        Get<QListWidget>("lstProjects")->setCurrentItem(found.front());
    }
    std::string ProjectFile(const std::string& project, const std::string& piece) {
        return (*folder) / ("projects/" + project + "/" + piece);
    }
    void LoadProject(const std::string& name) {
        modFunctions::CreateProjectFolders(folder->path(), name);
        Click("VantelButton4");
        Select(QString::fromStdString(name));
        Click("VantelButton6");
    }
    QStringList Factions() {
        QStringList rows;
        auto* list = Get<QTreeWidget>("lv_newfactions");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(0) + "|" + list->topLevelItem(i)->text(1);
        return rows;
    }
    void ClickFaction(const QString& nickname) {
        auto* list = Get<QTreeWidget>("lv_newfactions");
        const auto found = list->findItems(nickname, Qt::MatchExactly, 0);
        QCOMPARE(found.size(), 1);
        list->setCurrentItem(found.front());
        emit list->itemClicked(found.front(), 0);
    }

    // What the menu that the keys open shows (its name, accessible name and items); it is
    // closed again. Empty when none opens.
    QStringList MenuOpenedBy(QWidget* widget, const QKeySequence& keys) {
        QStringList seen;
        QTimer poll;
        int tries = 0;
        connect(&poll, &QTimer::timeout, [&] {
            for (QWidget* top : QApplication::topLevelWidgets())
                if (auto* menu = qobject_cast<QMenu*>(top); menu && menu->isVisible()) {
                    seen << menu->objectName() << menu->accessibleName();
                    for (const QAction* action : menu->actions())
                        seen << action->text();
                    menu->close();
                    poll.stop();
                }
            if (++tries > 400)
                poll.stop();
        });
        poll.start(5);
        QTest::keySequence(widget, keys);
        return seen;
    }

private slots:
    void init() {
        NewFolder();
        fs::create_directory((*folder) / "projects");
        OpenWindow();
    }
    void cleanup() { CloseWindow(); }

    // Loading slides from the project manager to the faction pages with the import buttons
    // enabled; the arrow slides back and forth, and without a project it does nothing.
    void LoadingSlidesToTheFactionsAndTheArrowSlidesBack() {
        QCOMPARE(window->windowTitle(), QString("Orrindel 2.0 beta 2 || Halvex"));
        QVERIFY(Get<VantelButton>("VantelButton3")->Bold()); // German is the shown language
        QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton);
        QVERIFY(!Timer("Timer3")->isActive());
        QVERIFY(!Get<VantelButton>("btnImportAll")->isEnabled());

        LoadProject("P");
        QVERIFY(Get<VantelButton>("btnImportAll")->isEnabled());
        QCOMPARE(Get<QLabel>("lblActiveProject")->text(), QString("P"));
        const struct {
            const char* timer;
            const char* arrow; // after the slide
            bool managerShown;
        } slides[] = {{"Timer3", "<--", false}, {"Timer4", "-->", true}, {"Timer3", "<--", false}};
        for (const auto& slide : slides) {
            if (&slide != slides) // the load starts the first slide
                QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton);
            RunTimer(slide.timer);
            QCOMPARE(Get<QLabel>("Label4")->text(), QString(slide.arrow));
            QCOMPARE(Get<QGroupBox>("Frame1")->isHidden(), !slide.managerShown);
            QCOMPARE(Get<QGroupBox>("Frame2")->isHidden(), slide.managerShown);
        }
    }

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

    // "?" twice leaves one About window; closed, it opens again.
    // The registry list's menu: F2, the Menu key and Shift+F10 reach it; a rename or a copy
    // reloads every list and selects the faction; a refusal is told and changes nothing.
    void FactionMenuRenamesAndDuplicatesAndEveryListFollows() {
        LoadProject("P");
        const std::string registry = ProjectFile("P", "misc/factions.ini");
        const std::string rates = ProjectFile("P", "emphaty/new/reps_fc_b_grp.facts");
        TempFolder::Write(registry, "[li_n_grp]\r\ngrp=Liberty\r\n[fc_b_grp]\r\ngrp=fc_b_grp\r\n");
        TempFolder::Write(rates, "[li_n_grp]\r\nrep=-0.7\r\n");
        Click("btnnewfactionreload");
        RunTimer("Timer3");
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        auto* list = Get<QTreeWidget>("lv_newfactions");
        list->setFocus();
        list->clearSelection();
        QTest::keyClick(list, Qt::Key_F2); // nothing selected: nothing asked
        QVERIFY(dialogs->asked.empty());

        ClickFaction("li_n_grp");
        dialogs->Answer("li_x_grp");
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(dialogs->asked.size(), std::size_t(1));
        QCOMPARE(dialogs->asked[0].prompt, QString("Neuer Nickname der Fraktion:"));
        QCOMPARE(dialogs->asked[0].title, QString("Umbenennen"));
        QCOMPARE(dialogs->asked[0].defaultText, QString("li_n_grp"));
        QCOMPARE(Factions(), (QStringList{"li_x_grp|Liberty", "fc_b_grp|fc_b_grp"}));
        QCOMPARE(list->currentItem()->text(0), QString("li_x_grp"));
        QCOMPARE(Get<QComboBox>("cboInit_group")->itemText(0), QString("li_x_grp"));
        QCOMPARE(TempFolder::Read(rates), std::string("[li_x_grp]\r\nrep=-0.7\r\n"));

        // The menu by keyboard, named for the faction it acts on.
        for (const QKeySequence& keys : {QKeySequence(Qt::Key_Menu), QKeySequence("Shift+F10")}) {
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window.get()));
            list->setFocus();
            QCOMPARE(MenuOpenedBy(list, keys),
                     (QStringList{"mnuFaction", "li_x_grp", "Umbenennen...", "Duplizieren..."}));
        }

        // Duplicate without relations; a cancelled question changes nothing.
        auto* duplicate = window->findChild<QAction*>("mnuDuplicateFaction");
        dialogs->Answer("li_d_grp");
        duplicate->trigger();
        dialogs->Answer("li_c_grp");
        dialogs->AnswerQuestion(QMessageBox::No);
        duplicate->trigger();
        QCOMPARE(dialogs->questions.size(), std::size_t(2));
        QVERIFY(dialogs->questions[1].text.startsWith("Sollen die anderen Fraktionen"));
        QCOMPARE(Factions(),
                 (QStringList{"li_x_grp|Liberty", "fc_b_grp|fc_b_grp", "li_c_grp|Liberty"}));
        QCOMPARE(list->currentItem()->text(0), QString("li_c_grp"));
        QCOMPARE(Get<QComboBox>("cboemphaty_group")->count(), 3);
        QCOMPARE(TempFolder::Read(rates), std::string("[li_x_grp]\r\nrep=-0.7\r\n"));
        // With relations the third faction's rate follows.
        ClickFaction("li_x_grp");
        dialogs->Answer("li_r_grp");
        dialogs->AnswerQuestion(QMessageBox::Yes);
        duplicate->trigger();
        QCOMPARE(TempFolder::Read(rates),
                 std::string("[li_x_grp]\r\nrep=-0.7\r\n[li_r_grp]\r\nrep=-0.7\r\n"));

        // A refusal is told, with its reason, and the registry stays.
        const std::string before = TempFolder::Read(registry);
        ClickFaction("fc_b_grp");
        dialogs->Answer("LI_X_GRP");
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY2(dialogs->shown[0].text.contains("registered already"),
                 qPrintable(dialogs->shown[0].text));
        QCOMPARE(TempFolder::Read(registry), before);

        Click("VantelButton2"); // English
        QCOMPARE(window->findChild<QAction*>("mnuRenameFaction")->text(), QString("Rename..."));
    }

    void AboutOpensOnceWithoutOwnerAndClosesByItsLabel() {
        QWidget* about = nullptr;
        const auto abouts = [&about] {
            int count = 0;
            for (QWidget* top : QApplication::topLevelWidgets())
                if (top->objectName() == "frmAbout" && top->isVisible()) {
                    about = top;
                    ++count;
                }
            return count;
        };
        Click("VantelButton3");
        Click("VantelButton3");
        QCOMPARE(abouts(), 1);
        QCOMPARE(about->parentWidget(), nullptr);
        QCOMPARE(about->windowTitle(), QString("Orrindel 2.0 || Halvex"));
        auto* tabs = about->findChild<QTabWidget*>();
        QCOMPARE(tabs->tabText(0), QString("Creating a Faction"));
        QCOMPARE(tabs->tabText(1), QString("Special Thanks"));
        QPointer<QWidget> guard(about);
        QTest::mouseClick(about->findChild<QLabel*>("Label1"), Qt::LeftButton);
        QTRY_VERIFY(guard.isNull());
        QVERIFY(window->isVisible());
        QCOMPARE(Get<QLabel>("Label1")->text(), QString("Scroll-Tempo"));
        Click("VantelButton3");
        QCOMPARE(abouts(), 1);
        about->close();
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMain_test.moc"
