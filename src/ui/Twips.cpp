// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Twips.h"

#include <QVariant>

namespace twips {
namespace {

constexpr const char* LeftKey = "twipsLeft";
constexpr const char* TopKey = "twipsTop";
constexpr const char* WidthKey = "twipsWidth";
constexpr const char* HeightKey = "twipsHeight";

void Apply(QWidget* widget) {
    widget->setGeometry(ToPixels(Left(widget)), ToPixels(Top(widget)), ToPixels(Width(widget)),
                        ToPixels(Height(widget)));
}

} // namespace

int ToPixels(int twips) {
    // Round half away from zero, so that 15 twips are one pixel and 7 twips none.
    return twips >= 0 ? (twips + PerPixel / 2) / PerPixel : -((-twips + PerPixel / 2) / PerPixel);
}

void Place(QWidget* widget, int left, int top, int width, int height) {
    widget->setProperty(LeftKey, left);
    widget->setProperty(TopKey, top);
    widget->setProperty(WidthKey, width);
    widget->setProperty(HeightKey, height);
    Apply(widget);
}

int Left(const QWidget* widget) {
    return widget->property(LeftKey).toInt();
}
int Top(const QWidget* widget) {
    return widget->property(TopKey).toInt();
}
int Width(const QWidget* widget) {
    return widget->property(WidthKey).toInt();
}
int Height(const QWidget* widget) {
    return widget->property(HeightKey).toInt();
}

void SetLeft(QWidget* widget, int left) {
    widget->setProperty(LeftKey, left);
    Apply(widget);
}

bool SetWidth(QWidget* widget, int width) {
    if (width < 0)
        return false;
    widget->setProperty(WidthKey, width);
    Apply(widget);
    return true;
}

} // namespace twips
