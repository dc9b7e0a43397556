#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "ui/InitialWorldPage.h"
#include "ui/Session.h"
#include "ui/VantelButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>
#include <memory>

class InitialWorldPageTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void loadedRegistryListsFactionsWithZeroRepAndChoosesNone();
    void choosingFactionWithoutSectionWritesBackErrorAndShowsStoredReputations();
    void typingStoresEachBoxUnderItsKey();
    void mirrorOnStoresBothEntriesAndOwnRowOnce();
    void mirrorOffStoresOnlyTheEditedEntry();
    void cancelOrEmptyInputChangesNothing();
    void doubleClickWithoutRowOrFactionAsksNothing();
    void failedWriteIsShownNamingTheFileAndCellKeepsItsValue();
    void compileWritesFileProtocolAndFillsBothBars();
    void failedCompileIsShownAndNotLogged();

private:
    std::string DataPath() const { return *app / "projects/Mod/initialworld/grp.ini"; }
    std::string Data() const { return TempFolder::Read(DataPath()); }
    void Choose(int index) {
        cbo->setCurrentIndex(index);
        emit cbo->activated(index);
    }
    void DoubleClick(int row) {
        QTreeWidgetItem* item = lv->topLevelItem(row);
        lv->setCurrentItem(item);
        emit lv->itemDoubleClicked(item, 0);
    }
    QString Rep(int row) const { return lv->topLevelItem(row)->text(2); }

    std::unique_ptr<TempFolder> app;
    std::unique_ptr<Session> session;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<InitialWorldPage> page;
    QComboBox* cbo = nullptr;
    QTreeWidget* lv = nullptr;
    QCheckBox* force = nullptr;
};

void InitialWorldPageTest::init() {
    app = std::make_unique<TempFolder>();
    modFunctions::EnsureProjectsFolder(app->path());
    modFunctions::CreateProjectFolders(app->path(), "Mod");
    session = std::make_unique<Session>();
    session->appDir = app->path();
    session->ActiveProject = "Mod";
    session->activeProjectCaption = [] { return std::string("Mod"); };
    dialogs = std::make_unique<ScriptedDialogs>();
    page = std::make_unique<InitialWorldPage>(*session, *dialogs);
    page->AddFactions({{"li_police", "Liberty", "0.7"}, {"rh_grp", "Rheinland", "0.0"}});
    cbo = page->findChild<QComboBox*>("cboInit_group");
    lv = page->findChild<QTreeWidget*>("lv_Init");
    force = page->findChild<QCheckBox*>("chkForceRep2");
    QVERIFY(cbo && lv && force);
}

void InitialWorldPageTest::cleanup() {
    page.reset();
    app.reset();
}

void InitialWorldPageTest::loadedRegistryListsFactionsWithZeroRepAndChoosesNone() {
    QCOMPARE(lv->topLevelItemCount(), 2);
    QCOMPARE(lv->topLevelItem(0)->text(0), QString("li_police"));
    QCOMPARE(lv->topLevelItem(0)->text(1), QString("Liberty"));
    QCOMPARE(Rep(0), QString("0.0")); // not the registry's "Rep"
    QCOMPARE(cbo->count(), 2);
    QCOMPARE(cbo->currentText(), QString());
    QVERIFY(force->isChecked());
    // No faction chosen yet: typing stores nothing.
    QTest::keyClicks(page->findChild<QLineEdit*>("txtInitName"), "42");
    QVERIFY(!std::filesystem::exists(DataPath()));

    page->ClearFactions();
    QCOMPARE(lv->topLevelItemCount(), 0);
    QCOMPARE(cbo->count(), 0);
}

void InitialWorldPageTest::choosingFactionWithoutSectionWritesBackErrorAndShowsStoredReputations() {
    TempFolder::Write(DataPath(), "[rh_grp]\r\nids_name=1\r\nli_police=-0.65\r\n");
    // A box that already shows "error" does not change, so it stores nothing.
    page->findChild<QLineEdit*>("txtInitShortName")->setText("error");
    Choose(0);
    QCOMPARE(page->findChild<QLineEdit*>("txtInitName")->text(), QString("error"));
    QCOMPARE(page->findChild<QLineEdit*>("txtInitInfo")->text(), QString("error"));
    QCOMPARE(Data(), std::string("[rh_grp]\r\nids_name=1\r\nli_police=-0.65\r\n"
                                 "[li_police]\r\nids_name=error\r\nids_info=error\r\n"));
    QCOMPARE(Rep(0), QString());
    QCOMPARE(Rep(1), QString());

    Choose(1);
    QCOMPARE(page->findChild<QLineEdit*>("txtInitName")->text(), QString("1"));
    QCOMPARE(Rep(0), QString("-0.65"));
    QCOMPARE(Rep(1), QString());
}

void InitialWorldPageTest::typingStoresEachBoxUnderItsKey() {
    TempFolder::Write(DataPath(), "[rh_grp]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n");
    Choose(1);
    QTest::keyClick(page->findChild<QLineEdit*>("txtInitName"), Qt::Key_Backspace);
    QTest::keyClicks(page->findChild<QLineEdit*>("txtInitName"), "96");
    QTest::keyClicks(page->findChild<QLineEdit*>("txtInitShortName"), "7");
    QTest::keyClicks(page->findChild<QLineEdit*>("txtInitInfo"), "8");
    QCOMPARE(Data(),
             std::string("[rh_grp]\r\nids_name=96\r\nids_short_name=27\r\nids_info=38\r\n"));
}

void InitialWorldPageTest::mirrorOnStoresBothEntriesAndOwnRowOnce() {
    TempFolder::Write(DataPath(),
                      "[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n");
    Choose(0);
    dialogs->Answer("0.5");
    DoubleClick(1);
    QCOMPARE(dialogs->asked.size(), std::size_t(1));
    QCOMPARE(dialogs->asked[0].prompt, QString("Reputation"));
    QCOMPARE(dialogs->asked[0].title, QString("Initialworld"));
    QCOMPARE(dialogs->asked[0].defaultText, QString("0.0"));
    QCOMPARE(Rep(1), QString("0.5"));
    dialogs->Answer("1");
    DoubleClick(0);
    QCOMPARE(Rep(0), QString("1"));
    QCOMPARE(Data(), std::string("[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n"
                                 "rh_grp=0.5\r\nli_police=1\r\n"
                                 "[rh_grp]\r\nli_police=0.5\r\n"));
    // The default offered is always "0.0", not the current value.
    dialogs->Answer("");
    DoubleClick(1);
    QCOMPARE(dialogs->asked.back().defaultText, QString("0.0"));
}

void InitialWorldPageTest::mirrorOffStoresOnlyTheEditedEntry() {
    TempFolder::Write(DataPath(),
                      "[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n");
    Choose(0);
    force->setChecked(false);
    dialogs->Answer("-0.3");
    DoubleClick(1);
    QCOMPARE(Data(), std::string("[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n"
                                 "rh_grp=-0.3\r\n"));
    QCOMPARE(Rep(1), QString("-0.3"));
}

void InitialWorldPageTest::cancelOrEmptyInputChangesNothing() {
    const std::string before = "[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n"
                               "rh_grp=0.2\r\n";
    TempFolder::Write(DataPath(), before);
    Choose(0);
    dialogs->Answer(""); // cancelled or confirmed empty: the box gives "" either way
    DoubleClick(1);
    QCOMPARE(dialogs->asked.size(), std::size_t(1));
    QCOMPARE(Rep(1), QString("0.2"));
    QCOMPARE(Data(), before);
}

void InitialWorldPageTest::doubleClickWithoutRowOrFactionAsksNothing() {
    // No faction chosen.
    DoubleClick(0);
    // A faction chosen but no row selected.
    Choose(0);
    lv->clearSelection();
    QMetaObject::invokeMethod(page.get(), "lv_Init_DblClick");
    // No active project.
    session->ActiveProject.clear();
    DoubleClick(0);
    QVERIFY(dialogs->asked.empty());
}

void InitialWorldPageTest::failedWriteIsShownNamingTheFileAndCellKeepsItsValue() {
    TempFolder::Write(DataPath(),
                      "[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n");
    Choose(0);
    std::filesystem::permissions(DataPath(), std::filesystem::perms::owner_read);
    dialogs->Answer("0.9");
    DoubleClick(1);
    QCOMPARE(dialogs->shown.size(), std::size_t(1));
    QCOMPARE(dialogs->shown[0].icon, QMessageBox::Critical);
    QVERIFY(dialogs->shown[0].text.contains("grp.ini"));
    QCOMPARE(Rep(1), QString());

    QTest::keyClicks(page->findChild<QLineEdit*>("txtInitInfo"), "4");
    QCOMPARE(dialogs->shown.size(), std::size_t(2));
    QVERIFY(dialogs->shown[1].text.contains("grp.ini"));
}

void InitialWorldPageTest::compileWritesFileProtocolAndFillsBothBars() {
    TempFolder::Write(DataPath(), "[rh_grp]\r\nli_police=-0.65\r\n");
    emit page->findChild<VantelButton*>("VantelButton13")->Click();
    const std::string output = TempFolder::Read(*app / "projects/Mod/compiled/initialworld.ini");
    QVERIFY(output.find("[Group]\r\nnickname = rh_grp\r\nids_name = \r\nids_info = \r\n"
                        "ids_short_name = \r\nrep = -0.65, li_police\r\nrep = 0.0, rh_grp\r\n"
                        "\r\n\r\n") != std::string::npos);
    const std::string protocol = txtReadWrite::ReadFileText(
        modFunctions::ProjectPath(app->path(), "Mod", "\\protocol\\protocol.txt"));
    QVERIFY(protocol.find(": Initialworld.ini created...\r\n\r\n") != std::string::npos);
    auto* pgInit1 = page->findChild<QProgressBar*>("pgInit1");
    auto* pgInit2 = page->findChild<QProgressBar*>("pgInit2");
    QCOMPARE(pgInit1->maximum(), 2);
    QCOMPARE(pgInit1->value(), 2);
    QCOMPARE(pgInit2->maximum(), 2);
    QCOMPARE(pgInit2->value(), 2);
    QVERIFY(dialogs->shown.empty());
}

void InitialWorldPageTest::failedCompileIsShownAndNotLogged() {
    std::filesystem::remove(*app / "projects/Mod/compiled");
    emit page->findChild<VantelButton*>("VantelButton13")->Click();
    QCOMPARE(dialogs->shown.size(), std::size_t(1));
    QVERIFY(dialogs->shown[0].text.contains("initialworld.ini"));
    const std::string protocol = txtReadWrite::ReadFileText(
        modFunctions::ProjectPath(app->path(), "Mod", "\\protocol\\protocol.txt"));
    QVERIFY(protocol.find("Initialworld") == std::string::npos);

    // Without an active project the button does nothing at all.
    session->ActiveProject.clear();
    emit page->findChild<VantelButton*>("VantelButton13")->Click();
    QCOMPARE(dialogs->shown.size(), std::size_t(1));
}

QTEST_MAIN(InitialWorldPageTest)
#include "InitialWorldPage_test.moc"
