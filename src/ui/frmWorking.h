// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The small "please wait" window with one picture, shown while the script is built.
#include <QWidget>

class QLabel;

class frmWorking : public QWidget {
    Q_OBJECT
public:
    explicit frmWorking(QWidget* parent = nullptr);

private:
    QLabel* Picture1;
};
