// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the three state pictures of the image button (127 x 22 px, JPEG) into a folder.
// Built and run on demand by make_images.sh; the results are committed as resources.
#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QString>
#include <cstdio>

namespace {

struct Look {
    const char* file;
    QColor top, bottom, border, highlight;
    bool sunken;  // pressed: shadow along the top edge instead of a highlight
};

QImage Draw(const Look& look) {
    QImage image(127, 22, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, 0, image.height());
    gradient.setColorAt(0.0, look.top);
    gradient.setColorAt(0.45, look.top.darker(104));
    gradient.setColorAt(1.0, look.bottom);
    painter.fillRect(image.rect(), gradient);

    // One-pixel bevel inside the border.
    const QColor light = look.sunken ? look.bottom.darker(112) : look.highlight;
    const QColor dark = look.sunken ? look.highlight : look.bottom.darker(110);
    painter.setPen(light);
    painter.drawLine(1, 1, image.width() - 2, 1);
    painter.drawLine(1, 1, 1, image.height() - 2);
    painter.setPen(dark);
    painter.drawLine(1, image.height() - 2, image.width() - 2, image.height() - 2);
    painter.drawLine(image.width() - 2, 1, image.width() - 2, image.height() - 2);

    painter.setPen(look.border);
    painter.drawRect(0, 0, image.width() - 1, image.height() - 1);
    return image;
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".");
    const Look looks[] = {
        {"up.jpg", QColor(0xf6, 0xf7, 0xf9), QColor(0xd3, 0xd9, 0xe1), QColor(0x74, 0x80, 0x90),
         QColor(0xff, 0xff, 0xff), false},
        {"over.jpg", QColor(0xf0, 0xf7, 0xff), QColor(0xbf, 0xdb, 0xf6), QColor(0x3a, 0x78, 0xc2),
         QColor(0xff, 0xff, 0xff), false},
        {"down.jpg", QColor(0xb9, 0xcf, 0xe8), QColor(0xdc, 0xe8, 0xf5), QColor(0x2d, 0x5c, 0x94),
         QColor(0xe8, 0xf0, 0xf9), true},
    };
    for (const Look& look : looks) {
        const QString path = folder + '/' + QString::fromLatin1(look.file);
        if (!Draw(look).save(path, "JPG", 95)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
