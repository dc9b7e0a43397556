// SPDX-License-Identifier: GPL-3.0-or-later
// The project manager built on its own: what the project list, the labels and the disk show
// after each button.
#include "ui/ProjectManagerPanel.h"
#include "ui/VantelButton.h"
#include "ui/support/PageFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <filesystem>

namespace fs = std::filesystem;

class ProjectManagerPanelTest : public QObject, protected PageFixture<ProjectManagerPanel> {
    Q_OBJECT

    QStringList Projects() {
        QStringList names;
        for (int i = 0; i < Get<QListWidget>("lstProjects")->count(); ++i)
            names << Get<QListWidget>("lstProjects")->item(i)->text();
        return names;
    }
    void Select(const char* project) {
        auto* list = Get<QListWidget>("lstProjects");
        const auto found = list->findItems(QString::fromUtf8(project), Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        list->setCurrentItem(found.front());
    }
    void Click(const char* button) { emit Get<VantelButton>(button)->Click(); }
    void Create(const QString& name) {
        Get<QLineEdit>("txtdateiname")->setText(name);
        QTest::keyClick(Get<QLineEdit>("txtdateiname"), Qt::Key_Return);
    }
    std::string Protocol(const std::string& project) {
        return TempFolder::Read(*folder / ("projects/" + project + "/Protocol/protocol.txt"));
    }

private slots:
    void init() {
        OpenPage("P"); // made on disk, but no project is loaded yet
        session->ActiveProject.clear();
        session->SetActiveProjectCaption("");
    }
    void cleanup() { ClosePage(); }

    void LoadCreateIntoTheLoadedProtocolShowItAndDelete() {
        QSignalSpy loaded(page.get(), &ProjectManagerPanel::ProjectLoaded);
        QSignalSpy deleted(page.get(), &ProjectManagerPanel::ProjectDeleted);
        Click("VantelButton6"); // nothing selected: the notice, nothing loaded
        QVERIFY(!Get<QLabel>("lblNoProject")->isHidden());
        QCOMPARE(loaded.count(), 0);

        page->RefreshProjectList();
        Select("P");
        Click("VantelButton6");
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(session->ActiveProject, std::string("P"));
        QCOMPARE(Get<QLabel>("lblActiveProject")->text(), QString("P"));

        // A project made while P is loaded gets its line in P's protocol.
        Create("Beta");
        QVERIFY(dialogs->shown.empty());
        QCOMPARE(Projects(), (QStringList{"Beta", "P"}));
        QVERIFY(Protocol("P").ends_with(": Project created.\r\n\r\n"));
        QVERIFY(!fs::exists(*folder / "projects/Beta/Protocol/protocol.txt"));
        // The protocol view shows the clicked project's file, empty without one.
        Select("P");
        QVERIFY(Get<QTextEdit>("rtfLog")->toPlainText().contains(": Project created."));
        Select("Beta");
        QCOMPARE(Get<QTextEdit>("rtfLog")->toPlainText(), QString());

        // Deleting the loaded project unloads it; its name stays on the label.
        Select("P");
        Click("VantelButton5");
        QCOMPARE(deleted.count(), 1);
        QVERIFY(!fs::exists(*folder / "projects/P"));
        QVERIFY(session->ActiveProject.empty());
        QCOMPARE(Get<QLabel>("lblActiveProject")->text(), QString("P"));
        QCOMPARE(Projects(), QStringList{"Beta"});
    }
};

QTEST_MAIN(ProjectManagerPanelTest)
#include "ProjectManagerPanel_test.moc"
