#include "ui/VantelButton.h"

#include <QMouseEvent>
#include <QPainter>

VantelButton::VantelButton(QWidget* parent) : QWidget(parent) { setFixedSize(127, 22); }

void VantelButton::setCaption(const QString& caption) {
    caption_ = caption;
    update();
}

void VantelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.drawText(rect(), Qt::AlignCenter, caption_);
}

void VantelButton::mouseReleaseEvent(QMouseEvent* event) {
    if (isEnabled() && rect().contains(event->position().toPoint()))
        emit Click();
}
