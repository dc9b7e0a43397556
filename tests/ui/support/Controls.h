// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Finds a control by its object name below a widget; a missing one ends the test run with its
// name, so a renamed control reads as such rather than as a null dereference.
#include <QString>
#include <QWidget>
#include <QtGlobal>

template <class T> T* Control(const QWidget* in, const char* name) {
    T* widget = in->findChild<T*>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no control %s", name);
    return widget;
}
