#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "ui/ImportActions.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"
#include "ui/frmImport.h"

#include <QListWidget>
#include <QProgressBar>
#include <QSignalSpy>
#include <QtTest>
#include <filesystem>

// The import buttons and dialog against a copy of the shipped library and one project.
class frmImportTest : public QObject {
    Q_OBJECT

private:
    struct Setup {
        TempFolder temp;
        Session session;
        ScriptedDialogs dialogs;
        QWidget owner;
        VantelButton* btnImport = new VantelButton(&owner);
        VantelButton* btnImportAll = new VantelButton(&owner);
        QProgressBar* pgImportAll = new QProgressBar(&owner);
        std::vector<std::string> shownFactions; // what the editors' pickers would hold
        int reloads = 0;
        ImportActions* actions = nullptr;

        Setup() {
            std::filesystem::copy(ORRINDEL_TEST_DATA_DIR, temp / "data",
                                  std::filesystem::copy_options::recursive);
            session.appDir = temp.path();
            modFunctions::EnsureProjectsFolder(session.appDir);
            modFunctions::CreateProjectFolders(session.appDir, "P");
            QObject::connect(&session, &Session::RegistryChanged, [this] {
                ++reloads;
                shownFactions = modFunctions::RegistryNicknames(
                    modFunctions::RegistryPath(session.appDir, session.ActiveProjectCaption()));
            });
            actions =
                new ImportActions(session, dialogs, btnImport, btnImportAll, pgImportAll, &owner);
        }
        void Load(const std::string& project) {
            session.ActiveProject = project;
            session.SetActiveProjectCaption(project);
            actions->UpdateEnabled();
        }
        std::string Protocol() const {
            return txtReadWrite::ReadFileText(
                modFunctions::ProjectPath(session.appDir, "P", "\\protocol\\protocol.txt"));
        }
    };

    static int Count(const std::string& text, const std::string& what) {
        int n = 0;
        for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++n;
        return n;
    }

private slots:
    // The dialog imports into the project that lblActiveProject shows; import all into
    // ActiveProject.
    void singleImportFollowsTheCaptionImportAllTheMember() {
        Setup s;
        modFunctions::CreateProjectFolders(s.session.appDir, "Q");
        s.Load("Q");
        s.session.SetActiveProjectCaption("P");
        emit s.btnImport->Click();
        auto* File1 = s.actions->ImportDialog()->findChild<QListWidget*>("File1");
        emit File1->itemClicked(File1->findItems("li_n_grp", Qt::MatchExactly).front());
        emit s.actions->ImportDialog()->findChild<VantelButton*>("btnImport")->Click();
        const auto registry = [&](const char* project) {
            return modFunctions::RegistryNicknames(
                modFunctions::RegistryPath(s.session.appDir, project));
        };
        QCOMPARE(registry("P"), std::vector<std::string>{"li_n_grp"});
        QVERIFY(registry("Q").empty());
        QCOMPARE(Count(s.Protocol(), "Original imported..."), 1);
        // Import all: one refused entry is named, the rest imported, the bar moved and reset.
        TempFolder::Write(s.temp / "data/initialworld/original_factions/li_p_grp", "rep = 1\r\n");
        QList<int> values;
        connect(s.pgImportAll, &QProgressBar::valueChanged, [&](int v) { values << v; });
        emit s.btnImportAll->Click();
        QCOMPARE(registry("P").size(), std::size_t(1));
        QCOMPARE(registry("Q").size(), std::size_t(42));
        QVERIFY(values.contains(s.pgImportAll->maximum()));
        QCOMPARE(s.pgImportAll->value(), 0);
        QCOMPARE(s.reloads, 2);
        QCOMPARE(Count(s.Protocol(), "Original imported..."), 1);
        QCOMPARE(s.dialogs.shown.size(), std::size_t(1));
        QVERIFY(s.dialogs.shown[0].text.contains("li_p_grp, line 1"));
    }
};

QTEST_MAIN(frmImportTest)
#include "frmImport_test.moc"
