#pragma once
// The main window: project manager and faction registry on the first page, one page per
// game file and the script page after it, the three buttons above, the panel animations.
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QGroupBox;
class QSlider;
class QTabWidget;
class QTextEdit;
class QTimer;
class QTreeWidget;
class Dialogs;
class FactionPropsPage;
class InitialWorldPage;
class RegistryView;
class ReputationPage;
class VantelButton;
class ImportActions;
class XmlScriptPage;
struct Session;

class frmMain : public QWidget {
    Q_OBJECT
public:
    frmMain(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

    // The two language routines; the language button calls one of them.
    void German();
    void English();

    // Refills the registry list and every page's pickers and list views from the registry
    // of the project that lblActiveProject names. Any error ends it silently.
    void LoadFactionRegistry();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void Form_Load();
    void lstProjects_Click();
    void txtdateiname_KeyPress();
    void VantelButton1_Click();
    void VantelButton2_Click();
    void VantelButton3_Click();
    void VantelButton4_Click();
    void VantelButton5_Click();
    void VantelButton6_Click();
    void VantelButton7_Click();
    void Label4_Click();
    void Slider1_Change();
    void btnnewfactionnew_Click();
    void btnnewfactiondel_Click();
    void btnnewfactionreload_Click();
    void lv_newfactions_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer4_Timer();
    void Timer7_Timer();

private:
    void BuildTopButtons();
    QWidget* BuildProjectsPage();
    void BuildFrame1();
    void BuildFrame2();
    void BuildTimers();

    void CreateProject(const QString& name);
    void RefreshProjectList();
    void ShowNoProject();
    // Runs a change of the registry; a failure is shown, and false returned.
    // The slide step in twips from txtZeit.
    int SlideStep() const;
    bool ChangeRegistry(const std::function<void()>& change, const QString& failure);
    QString SelectedProject() const;
    void CreateProjectError(int number, const QString& description);
    std::string ActiveProjectCaption() const;

    Session& session;
    Dialogs& dialogs;

    VantelButton* VantelButton1;
    VantelButton* VantelButton2;
    VantelButton* VantelButton3;
    QTabWidget* SSTab1;

    QLabel* Label1;
    QLabel* Label4;
    QSlider* Slider1;
    QLineEdit* txtZeit;

    QGroupBox* Frame1;
    QListWidget* lstProjects;
    QLabel* Label5;
    QTextEdit* rtfLog;
    QLineEdit* txtdateiname;
    QLabel* lblNoProject;
    QLabel* lblActiveProject;
    VantelButton* VantelButton4;
    VantelButton* VantelButton5;
    VantelButton* VantelButton6;
    VantelButton* VantelButton7;

    QGroupBox* Frame2;
    QTreeWidget* lv_newfactions;
    QGroupBox* frmnewFaction;
    QLineEdit* txtNewNick;
    QLineEdit* txtNewDescr;
    VantelButton* btnnewfactionnew;
    VantelButton* btnnewfactiondel;
    VantelButton* btnnewfactionreload;
    QProgressBar* pgLoadProject;
    QLabel* lblFactions;
    QLabel* lblFactionsGesamt;
    VantelButton* btnImport;
    VantelButton* btnImportAll;
    QProgressBar* pgImportAll;
    ImportActions* importActions;

    ReputationPage* reputationPage;
    FactionPropsPage* factionPropsPage;
    InitialWorldPage* initialWorldPage;
    XmlScriptPage* xmlScriptPage;
    std::vector<RegistryView*> registryViews;

    QTimer* Timer1;
    QTimer* Timer2;
    QTimer* Timer3;
    QTimer* Timer4;
    QTimer* Timer7;
};
