// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Placement in twips (15 per pixel at 96 dpi). The window's animations step in twips, so
// each widget keeps its twips rectangle and derives its pixel geometry from it: rounding
// to pixels never feeds back into the next step.
#include <QWidget>

namespace twips {

inline constexpr int PerPixel = 15;

int ToPixels(int twips);

// Sets the rectangle (twips, relative to the parent) and applies it.
void Place(QWidget* widget, int left, int top, int width, int height);

int Left(const QWidget* widget);
int Top(const QWidget* widget);
int Width(const QWidget* widget);
int Height(const QWidget* widget);

void SetLeft(QWidget* widget, int left);
// Negative widths are refused (false, nothing changes), as the toolkit refuses them.
bool SetWidth(QWidget* widget, int width);

} // namespace twips
