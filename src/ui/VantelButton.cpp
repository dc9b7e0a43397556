// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/VantelButton.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QTimer>
#include <QUrl>
#include <cmath>

namespace {

constexpr int kTwipsPerPixel = 15; // 96 dpi
constexpr int kCaptionDropTwips = 20;
constexpr int kHoverIntervalMs = 150;

// One state picture, stretched over the whole control. Drawn the same whether the
// button is enabled or not: only the caption shows the disabled state.
class ImagePart : public QWidget {
public:
    ImagePart(const QString& resource, const QString& name, QWidget* parent)
        : QWidget(parent), pixmap_(resource) {
        setObjectName(name);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), pixmap_);
    }

private:
    QPixmap pixmap_;
};

// The keyboard focus, drawn over the pictures: the style's focus rectangle inside a frame in
// the highlight colour, so that it shows on any artwork.
class FocusMark : public QWidget {
public:
    explicit FocusMark(QWidget* button) : QWidget(button) {
        setObjectName(QStringLiteral("focusMark"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect().adjusted(3, 3, -3, -3);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

// The caption as read aloud: the "&" that marks the access key is dropped, "&&" is "&".
QString WithoutAccessKeyMark(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size())
            ++i;
        text += caption[i];
    }
    return text;
}

// Screen readers and automation see a push button named by its caption. The caption wins over
// the name the toolkit would derive from the surroundings (the title of the enclosing frame);
// only an accessible name set on purpose replaces it.
class VantelButtonAccessible : public QAccessibleWidget {
public:
    explicit VantelButtonAccessible(VantelButton* button)
        : QAccessibleWidget(button, QAccessible::Button) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) {
            const QString own = Button()->accessibleName();
            return own.isEmpty() ? WithoutAccessKeyMark(Button()->Caption()) : own;
        }
        QString value = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Accelerator && value.isEmpty())
            value = QKeySequence::mnemonic(Button()->Caption()).toString(QKeySequence::NativeText);
        return value;
    }
    // The pictures and the caption label are the button's own drawing, not children.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            Button()->click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    VantelButton* Button() const { return static_cast<VantelButton*>(object()); }
};

QAccessibleInterface* AccessibleFactory(const QString& className, QObject* object) {
    if (className == QLatin1String("VantelButton") && object && object->isWidgetType())
        return new VantelButtonAccessible(static_cast<VantelButton*>(object));
    return nullptr;
}

void RegisterOnce() {
    static const bool registered = [] {
        QAccessible::installFactory(AccessibleFactory);
        return true;
    }();
    (void)registered;
}

} // namespace

static void InitResources() {
    Q_INIT_RESOURCE(VantelButton);
}

VantelButton::VantelButton(QWidget* parent) : QAbstractButton(parent) {
    InitResources();
    RegisterOnce();

    imgUp = new ImagePart(QStringLiteral(":/vantelbutton/up.jpg"), QStringLiteral("imgUp"), this);
    imgOver =
        new ImagePart(QStringLiteral(":/vantelbutton/over.jpg"), QStringLiteral("imgOver"), this);
    imgDown =
        new ImagePart(QStringLiteral(":/vantelbutton/down.jpg"), QStringLiteral("imgDown"), this);
    imgOver->hide();
    imgDown->hide();

    lblCaption = new QLabel(this);
    lblCaption->setObjectName(QStringLiteral("lblCaption"));
    lblCaption->setTextFormat(Qt::RichText);
    lblCaption->setAlignment(Qt::AlignCenter);
    lblCaption->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblCaption->raise();
    focusMark = new FocusMark(this);
    focusMark->raise();
    setFocusPolicy(Qt::StrongFocus);
    QFont font(QStringLiteral("Tahoma"));
    font.setPointSize(8);
    ApplyFont(font);
    setForeColor(Qt::black);

    // The caption is the object name until one is set.
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        if (!captionSet_)
            ShowCaption(name);
    });

    // Whoever clicks through the toolkit's own button interface clicks this button.
    connect(this, &QAbstractButton::clicked, this, &VantelButton::Click);

    tmrChkStatus = new QTimer(this);
    tmrChkStatus->setObjectName(QStringLiteral("tmrChkStatus"));
    tmrChkStatus->setInterval(kHoverIntervalMs);
    connect(tmrChkStatus, &QTimer::timeout, this, &VantelButton::tmrChkStatus_Timer);
    tmrChkStatus->start();

    resize(sizeHint());
}

QSize VantelButton::sizeHint() const {
    return QSize(127, 22);
}

QString VantelButton::Caption() const {
    return caption_;
}

// "&" marks the access key, drawn underlined; "&&" stands for "&" itself.
void VantelButton::ShowCaption(const QString& caption) {
    caption_ = caption;
    QString shown;
    bool marked = false;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) {
            ++i;
            if (caption[i] != u'&' && !marked) {
                marked = true;
                shown += QStringLiteral("<u>") + QString(caption[i]).toHtmlEscaped() +
                         QStringLiteral("</u>");
                continue;
            }
        }
        shown += QString(caption[i]).toHtmlEscaped();
    }
    lblCaption->setText(shown);
    // The toolkit's button text: it registers the access key and names the button.
    QAbstractButton::setText(caption);
}

void VantelButton::setCaption(const QString& caption) {
    captionSet_ = true;
    ShowCaption(caption);
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

QString VantelButton::FontName() const {
    return lblCaption->font().family();
}
void VantelButton::setFontName(const QString& name) {
    QFont font = lblCaption->font();
    font.setFamily(name);
    ApplyFont(font);
}

qint16 VantelButton::FontSize() const {
    return static_cast<qint16>(lblCaption->font().pointSize());
}
void VantelButton::setFontSize(qint16 points) {
    QFont font = lblCaption->font();
    font.setPointSize(points);
    ApplyFont(font);
}

bool VantelButton::Bold() const {
    return lblCaption->font().bold();
}
void VantelButton::setBold(bool on) {
    QFont font = lblCaption->font();
    font.setBold(on);
    ApplyFont(font);
}

bool VantelButton::Italic() const {
    return lblCaption->font().italic();
}
void VantelButton::setItalic(bool on) {
    QFont font = lblCaption->font();
    font.setItalic(on);
    ApplyFont(font);
}

bool VantelButton::Underline() const {
    return lblCaption->font().underline();
}
void VantelButton::setUnderline(bool on) {
    QFont font = lblCaption->font();
    font.setUnderline(on);
    ApplyFont(font);
}

QColor VantelButton::ForeColor() const {
    return lblCaption->palette().color(QPalette::Active, QPalette::WindowText);
}
void VantelButton::setForeColor(const QColor& color) {
    // Only the enabled groups: a disabled caption keeps the toolkit's disabled colour.
    QPalette palette = lblCaption->palette();
    palette.setColor(QPalette::Active, QPalette::WindowText, color);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, color);
    lblCaption->setPalette(palette);
}

void VantelButton::ApplyFont(const QFont& font) {
    lblCaption->setFont(font);
    Relayout();
}

void VantelButton::URLGoTo(qint32, const QString& address) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QDesktopServices::openUrl(QUrl::fromUserInput(address));
    QGuiApplication::restoreOverrideCursor();
}

void VantelButton::click() {
    if (!Enabled())
        return;
    ChangeTo(State::Down);
    ChangeTo(State::Up);
    emit Click();
}

void VantelButton::mousePressEvent(QMouseEvent* event) {
    if (Enabled() && event->button() == Qt::LeftButton)
        ChangeTo(State::Down);
}

void VantelButton::mouseReleaseEvent(QMouseEvent* event) {
    if (!Enabled() || event->button() != Qt::LeftButton)
        return;
    ChangeTo(State::Up);
    // Dragging off before releasing takes the press back.
    if (rect().contains(event->position().toPoint()))
        emit Click();
}

void VantelButton::keyPressEvent(QKeyEvent* event) {
    if (!Enabled() || event->isAutoRepeat()) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
        // As with the mouse: down while held, a click on release.
        spaceDown_ = true;
        ChangeTo(State::Down);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

void VantelButton::keyReleaseEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) &&
        !event->isAutoRepeat() && spaceDown_) {
        spaceDown_ = false;
        if (!Enabled())
            return;
        ChangeTo(State::Up);
        emit Click();
        return;
    }
    QAbstractButton::keyReleaseEvent(event);
}

void VantelButton::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    focusMark->show();
}

void VantelButton::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    focusMark->hide();
    if (spaceDown_) {
        // Focus gone while Space was held: the press is taken back.
        spaceDown_ = false;
        ChangeTo(State::Up);
    }
}

void VantelButton::paintEvent(QPaintEvent*) {
    // The pictures, the caption and the focus mark are child widgets that draw themselves.
}

bool VantelButton::event(QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        // The access key clicks at once, with the same events as a mouse click; a key that
        // two buttons share only moves the focus, as with the toolkit's own buttons.
        if (static_cast<QShortcutEvent*>(event)->isAmbiguous())
            setFocus(Qt::ShortcutFocusReason);
        else
            click();
        return true;
    }
    return QAbstractButton::event(event);
}

void VantelButton::resizeEvent(QResizeEvent* event) {
    QAbstractButton::resizeEvent(event);
    Relayout();
}

// Lengths in twips as the layout is defined: every picture covers the control, the caption
// spans its width and sits 20 twips below the vertical centre.
void VantelButton::Relayout() {
    for (QWidget* image : {imgUp, imgOver, imgDown, focusMark})
        image->setGeometry(rect());
    const int labelHeight = lblCaption->sizeHint().height();
    const double controlHeight = height() * kTwipsPerPixel;
    const double labelTwips = labelHeight * kTwipsPerPixel;
    const double top = (controlHeight - labelTwips) / 2 + kCaptionDropTwips;
    lblCaption->setGeometry(0, static_cast<int>(std::lround(top / kTwipsPerPixel)), width(),
                            labelHeight);
}

void VantelButton::ChangeTo(State state) {
    imgUp->setVisible(state == State::Up);
    imgOver->setVisible(state == State::Over);
    imgDown->setVisible(state == State::Down);
    switch (state) {
    case State::Up:
        emit ButtonUp();
        break;
    case State::Down:
        emit ButtonDown();
        break;
    case State::Over:
        emit MouseOver();
        break;
    }
}

bool VantelButton::IsOwnWidget(const QWidget* widget) const {
    return widget && (widget == this || isAncestorOf(widget));
}

void VantelButton::tmrChkStatus_Timer() {
    if (!Enabled())
        return;
    tmrChkStatus->stop();
    const bool pointerOnMe = IsOwnWidget(QApplication::widgetAt(QCursor::pos()));
    if (hover_ && !pointerOnMe) {
        hover_ = false;
        ChangeTo(State::Up);
    }
    if (!hover_ && pointerOnMe) {
        hover_ = true;
        ChangeTo(State::Over);
    }
    tmrChkStatus->start();
}
