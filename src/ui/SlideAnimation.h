// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The sliding switch between the project manager (Frame1) and the registry panel (Frame2):
// the arrow Label4 starts it, Timer3 slides toward the registry, Timer4 back, each tick
// moving the panels' common edge by the step that Slider1 sets (kept in txtZeit).
#include <QObject>

class QLabel;
class QLineEdit;
class QSlider;
class QTimer;
class QWidget;
class Session;

class SlideAnimation : public QObject {
    Q_OBJECT
public:
    // Builds Label1, Slider1, txtZeit and Label4 on the page; frame1 and frame2 are the panels.
    SlideAnimation(Session& session, QWidget* page, QWidget* frame1, QWidget* frame2);

    // Slides toward the panel that is not shown; nothing happens without an active project.
    void Label4_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void Slider1_Change();
    void Timer3_Timer();
    void Timer4_Timer();

private:
    // The slide step in twips from txtZeit.
    int SlideStep() const;

    Session& session;
    QWidget* Frame1;
    QWidget* Frame2;
    QLabel* Label1;
    QSlider* Slider1;
    QLineEdit* txtZeit;
    QLabel* Label4;
    QTimer* Timer3;
    QTimer* Timer4;
};
