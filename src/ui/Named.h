// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Controls carry the system's names as their object names, so that captions, tests and
// accessibility tools find them.
#include <QObject>
#include <QString>

template <typename T> T* Named(T* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}
