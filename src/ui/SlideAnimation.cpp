// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SlideAnimation.h"

#include "ui/PanelParts.h"
#include "ui/Session.h"
#include "ui/Twips.h"

#include <QEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>

namespace {

// Frame1's full width in twips: the slide back ends there.

} // namespace

SlideAnimation::SlideAnimation(Session& session_, QWidget* page, QWidget* frame1, QWidget* frame2)
    : QObject(page), session(session_), Frame1(frame1), Frame2(frame2) {
    setObjectName(QStringLiteral("slideAnimation"));
    Label1 = panel::MakeLabel(page, "Label1", QString());
    twips::Place(Label1, 120, 360, 1200, 255);
    Slider1 = Named(new QSlider(Qt::Horizontal, page), "Slider1");
    Slider1->setRange(10, 400);
    Slider1->setValue(80);
    twips::Place(Slider1, 1380, 300, 2700, 360);
    txtZeit = Named(new QLineEdit(QStringLiteral("80"), page), "txtZeit");
    txtZeit->hide();
    Label1->setBuddy(Slider1); // names it for screen readers, in the shown language
    connect(Slider1, &QSlider::valueChanged, this, &SlideAnimation::Slider1_Change);

    Label4 = panel::MakeLabel(page, "Label4", QStringLiteral("-->"));
    QFont arrow = Label4->font();
    arrow.setBold(true);
    arrow.setPointSize(arrow.pointSize() + 4);
    Label4->setFont(arrow);
    Label4->setCursor(Qt::PointingHandCursor);
    Label4->setAlignment(Qt::AlignCenter);
    twips::Place(Label4, 9000, 360, 960, 480);
    Label4->installEventFilter(this);

    Timer3 = panel::MakeTimer(this, "Timer3", 1);
    Timer4 = panel::MakeTimer(this, "Timer4", 1);
    connect(Timer3, &QTimer::timeout, this, &SlideAnimation::Timer3_Timer);
    connect(Timer4, &QTimer::timeout, this, &SlideAnimation::Timer4_Timer);
}

bool SlideAnimation::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Label4 && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        Label4_Click();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void SlideAnimation::Label4_Click() {
    if (session.ActiveProject.empty())
        return;
    if (!Frame1->isHidden()) {
        Timer3->start();
        Timer4->stop();
        Label4->setText(QStringLiteral("<--"));
    } else {
        Timer4->start();
        Timer3->stop();
        Label4->setText(QStringLiteral("-->"));
    }
}

void SlideAnimation::Slider1_Change() {
    txtZeit->setText(QString::number(Slider1->value()));
}

int SlideAnimation::SlideStep() const {
    // A step that is not a number moves nothing; the timer keeps running.
    bool number = false;
    const int step = txtZeit->text().trimmed().toInt(&number);
    return number ? step : 0;
}

void SlideAnimation::Timer3_Timer() {
    const int step = SlideStep();
    Frame2->show();
    Frame1->show();
    twips::SetWidth(Frame1, twips::Width(Frame1) - step);
    twips::SetWidth(Frame2, twips::Width(Frame2) + step);
    twips::SetLeft(Frame2, twips::Left(Frame2) - step);
    if (twips::Width(Frame1) <= step) {
        Frame1->hide();
        Timer3->stop();
    }
}

void SlideAnimation::Timer4_Timer() {
    const int step = SlideStep();
    Frame2->show();
    Frame1->show();
    twips::SetWidth(Frame1, twips::Width(Frame1) + step);
    twips::SetWidth(Frame2, twips::Width(Frame2) - step);
    twips::SetLeft(Frame2, twips::Left(Frame2) + step);
    if (twips::Width(Frame1) >= panel::Frame1Width) {
        Frame2->hide();
        Timer4->stop();
    }
}
