#pragma once
// The image button that every window uses: three pictures, a caption on top, a click.
#include <QString>
#include <QWidget>

class VantelButton : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
public:
    explicit VantelButton(QWidget* parent = nullptr);
    QString Caption() const { return caption_; }
    void setCaption(const QString& caption);

signals:
    void Click();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString caption_;
};
