// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Small makers shared by the main window's panels: controls carry the system's names.
#include "ui/Named.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"

#include <QLabel>
#include <QTimer>

namespace panel {

// An image button's size: its pictures' 127 x 22 pixels, in twips.
inline constexpr int ButtonWidth = 127 * twips::PerPixel;
inline constexpr int ButtonHeight = 22 * twips::PerPixel;
// The project manager's width, where the slide back to it stops.
inline constexpr int Frame1Width = 9840;

inline QLabel* MakeLabel(QWidget* parent, const char* name, const QString& caption) {
    auto* label = Named(new QLabel(caption, parent), name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

inline VantelButton* MakeButton(QWidget* parent, const char* name) {
    return Named(new VantelButton(parent), name);
}

inline QTimer* MakeTimer(QObject* parent, const char* name, int interval) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(QString::fromLatin1(name));
    timer->setInterval(interval);
    timer->setTimerType(Qt::PreciseTimer);
    return timer;
}

} // namespace panel
