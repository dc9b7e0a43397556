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
#include <QShortcut>
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

// Screen readers and automation see a push button named by its caption.
class VantelButtonAccessible : public QAccessibleWidget {
public:
    explicit VantelButtonAccessible(VantelButton* button)
        : QAccessibleWidget(button, QAccessible::Button) {}

    QString text(QAccessible::Text kind) const override {
        QString value = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Name && value.isEmpty())
            value = WithoutAccessKeyMark(Button()->Caption());
        else if (kind == QAccessible::Accelerator && value.isEmpty())
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

VantelButton::VantelButton(QWidget* parent) : QWidget(parent) {
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
    QFont font(QStringLiteral("Tahoma"));
    font.setPointSize(8);
    ApplyFont(font);
    setForeColor(Qt::black);

    // The caption is the object name until one is set.
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        if (!captionSet_)
            ShowCaption(name);
    });

    mnemonic_ = new QShortcut(this);
    connect(mnemonic_, &QShortcut::activated, this, [this] {
        if (isEnabled())
            click();
    });

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
    mnemonic_->setKey(QKeySequence::mnemonic(caption));
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

void VantelButton::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Relayout();
}

// Lengths in twips as the layout is defined: every picture covers the control, the caption
// spans its width and sits 20 twips below the vertical centre.
void VantelButton::Relayout() {
    for (QWidget* image : {imgUp, imgOver, imgDown})
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
