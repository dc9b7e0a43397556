// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "XML-Script" page: builds the mod manager's install script into rtfXML, with the
// header from the fields of Frame3 when Check1 is checked. Frame3 slides open and closed
// in 20-twip steps driven by Timer6 and Timer5.
#include "core/FileReplacement.h"

#include <QWidget>

class Dialogs;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QTextEdit;
class QTimer;
class VantelButton;
class frmWorking;

class XmlScriptPage : public QWidget {
    Q_OBJECT
public:
    XmlScriptPage(Dialogs& dialogs, QWidget* parent = nullptr);

    // What rtfXML shows, the user's edits included, with CR LF line ends.
    QString ScriptText() const;
    // Writes the shown script to a file (Windows-1252 text); on failure shows the
    // file and the reason and returns false.
    // The calls that put the bytes on disk can be a test's.
    bool SaveScriptTo(const QString& path,
                      platform::FileCalls& calls = platform::SystemFileCalls());

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void btnCreateXML_Click();
    void Check1_Click();
    void Timer5_Timer();
    void Timer6_Timer();
    void btnCopyXML_Click();
    void btnSaveXML_Click();

private:
    void Layout();
    void SetScriptText(const QString& text);

    Dialogs& dialogs_;
    QCheckBox* Check1;
    VantelButton* btnCreateXML;
    VantelButton* btnCopyXML;
    VantelButton* btnSaveXML;
    QGroupBox* Frame3;
    QLineEdit* txtHeadModName;
    QLineEdit* txtHeadModVersion;
    QLineEdit* txtHeadModURL;
    QLineEdit* txtHeadModAutor;
    QLineEdit* txtHeadModDescr;
    QTextEdit* rtfXML;
    QTimer* Timer5; // collapse
    QTimer* Timer6; // expand
    frmWorking* working_ = nullptr;
};
