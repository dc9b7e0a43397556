// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The About window: name, version and two pages of notices. A click on Label1 closes it.
#include <QWidget>

class QLabel;
class QTabWidget;

class frmAbout : public QWidget {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void Label1_Click();

private:
    QLabel* Label1;
    QTabWidget* SSTab1;
};
