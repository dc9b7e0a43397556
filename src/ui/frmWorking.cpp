// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmWorking.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QVBoxLayout>

namespace {

// An hourglass on a light ground, drawn rather than shipped.
QPixmap Hourglass() {
    QPixmap picture(96, 96);
    picture.fill(QColor(0xf4, 0xf1, 0xe8));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x3a, 0x3f, 0x58), 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(26, 14, 70, 14);
    painter.drawLine(26, 82, 70, 82);
    QPainterPath glass;
    glass.moveTo(30, 16);
    glass.lineTo(66, 16);
    glass.lineTo(50, 48);
    glass.lineTo(66, 80);
    glass.lineTo(30, 80);
    glass.lineTo(46, 48);
    glass.closeSubpath();
    painter.setPen(QPen(QColor(0x3a, 0x3f, 0x58), 3));
    painter.drawPath(glass);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xd9, 0xa4, 0x41));
    painter.drawPolygon(QPolygonF({QPointF(38, 26), QPointF(58, 26), QPointF(48, 44)}));
    painter.drawPolygon(QPolygonF({QPointF(48, 62), QPointF(62, 78), QPointF(34, 78)}));
    return picture;
}

} // namespace

frmWorking::frmWorking(QWidget* parent) : QWidget(parent, Qt::Tool) {
    setObjectName(QStringLiteral("frmWorking"));
    setWindowTitle(QStringLiteral("please wait"));
    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setPixmap(Hourglass());
    Picture1->setAlignment(Qt::AlignCenter);
    Picture1->setAccessibleName(QStringLiteral("please wait"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Picture1);
    setFixedSize(sizeHint());
}
