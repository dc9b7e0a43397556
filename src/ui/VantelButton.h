// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The image button that every window uses: three pictures (up, over, down) stretched over
// the control, a caption drawn on top, Click on a left-button release, and a timer that
// follows the pointer to show the "over" picture. A real button for the keyboard and for
// assistive technology: it takes focus with Tab and shows it on its picture, Space and Enter
// click it, the letter after "&" is its access key, and it reads aloud as its caption.
#include <QAbstractButton>
#include <QColor>
#include <QString>

class QLabel;
class QTimer;

class VantelButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool Bold READ Bold WRITE setBold)
    Q_PROPERTY(bool Italic READ Italic WRITE setItalic)
    Q_PROPERTY(bool Underline READ Underline WRITE setUnderline)
    Q_PROPERTY(QString FontName READ FontName WRITE setFontName)
    Q_PROPERTY(qint16 FontSize READ FontSize WRITE setFontSize)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
public:
    explicit VantelButton(QWidget* parent = nullptr);

    // Until a caption is set, the caption is the button's own object name.
    QString Caption() const;
    void setCaption(const QString& caption);
    QString FontName() const;
    void setFontName(const QString& name);
    qint16 FontSize() const;
    void setFontSize(qint16 points);
    bool Bold() const;
    void setBold(bool on);
    bool Italic() const;
    void setItalic(bool on);
    bool Underline() const;
    void setUnderline(bool on);
    QColor ForeColor() const;
    void setForeColor(const QColor& color);
    // Enabled is QWidget's own state; while false the caption is drawn in the disabled
    // style and presses, releases and hover checks are ignored.
    bool Enabled() const { return isEnabled(); }

    // Opens an address with the desktop's URL opener, with the busy pointer meanwhile.
    // The owner window is not needed by the opener; the parameter keeps the call's shape.
    void URLGoTo(qint32 windowHandle, const QString& address);

    QSize sizeHint() const override;

public slots:
    // A left press and release in one: what the access key, the keyboard and the
    // accessibility press action do.
    void click();

signals:
    void Click();
    void ButtonDown();
    void ButtonUp();
    void MouseOver();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private slots:
    void tmrChkStatus_Timer();

private:
    enum class State { Up, Over, Down };
    void ChangeTo(State state);
    void ApplyFont(const QFont& font);
    void ShowCaption(const QString& caption);
    void Relayout();
    bool IsOwnWidget(const QWidget* widget) const;

    QWidget* imgUp;
    QWidget* imgOver;
    QWidget* imgDown;
    QLabel* lblCaption;
    QWidget* focusMark; // drawn over the pictures while the button has the keyboard focus
    QTimer* tmrChkStatus;
    bool hover_ = false;      // showing "over" because of the hover check
    bool captionSet_ = false; // false: the caption follows the object name
    bool spaceDown_ = false;  // Space pressed on the button and not yet released
    QString caption_;
};
