// SPDX-License-Identifier: GPL-3.0-or-later
// The image button driven through real mouse events, its hover timer and its
// accessibility interface.
#include "ui/VantelButton.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <functional>

namespace {

// Records the button's events in the order they are raised.
struct EventLog {
    QStringList events;
    explicit EventLog(VantelButton& button) {
        QObject::connect(&button, &VantelButton::Click, [this] { events << "Click"; });
        QObject::connect(&button, &VantelButton::ButtonDown, [this] { events << "ButtonDown"; });
        QObject::connect(&button, &VantelButton::ButtonUp, [this] { events << "ButtonUp"; });
        QObject::connect(&button, &VantelButton::MouseOver, [this] { events << "MouseOver"; });
    }
};

// Which of the three pictures is showing.
QString Shown(const VantelButton& button) {
    QStringList shown;
    for (const char* name : {"imgUp", "imgOver", "imgDown"})
        if (!button.findChild<QWidget*>(name)->isHidden())
            shown << name;
    return shown.join(',');
}

} // namespace

class VantelButtonTest : public QObject {
    Q_OBJECT
private slots:
    void KeyboardAndAssistiveTechnologyClickIt() {
        QGroupBox frame("Projektmanager");
        auto* first = new VantelButton(&frame);
        auto* button = new VantelButton(&frame);
        button->move(0, 40);
        button->setCaption("&Laden");
        frame.show();
        QVERIFY(QTest::qWaitForWindowActive(&frame));
        first->setFocus();
        QTest::keyClick(&frame, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), button);
        QVERIFY(button->findChild<QWidget*>("focusMark")->isVisible());
        QVERIFY(!first->findChild<QWidget*>("focusMark")->isVisible());
        // A push button that reads as its caption, not as the frame's title.
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(button);
        QCOMPARE(accessible->role(), QAccessible::Button);
        QCOMPARE(accessible->text(QAccessible::Name), "Laden");
        QCOMPARE(accessible->text(QAccessible::Accelerator),
                 QKeySequence(Qt::ALT | Qt::Key_L).toString(QKeySequence::NativeText));

        EventLog log(*button);
        QTest::keyPress(button, Qt::Key_Space);
        QCOMPARE(Shown(*button), QString("imgDown"));
        QTest::keyRelease(button, Qt::Key_Space);
        QCOMPARE(log.events, QStringList({"ButtonDown", "ButtonUp", "Click"}));
        const std::function<void()> clicks[] = {
            [&] { QTest::keyClick(button, Qt::Key_Return); },
            [&] { QTest::keyClick(button, Qt::Key_Enter); },
            [&] { QTest::keyClick(&frame, Qt::Key_L, Qt::AltModifier); }, // the access key
            [&] {
                accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            },
            [&] { QTest::keyClick(button, Qt::Key_Space); },
        };
        for (const bool enabled : {true, false}) {
            button->setEnabled(enabled);
            for (const auto& click : clicks) {
                const auto before = log.events.count("Click");
                click();
                QCOMPARE(log.events.count("Click"), before + (enabled ? 1 : 0));
            }
        }
        QVERIFY(accessible->state().disabled);
    }
};

QTEST_MAIN(VantelButtonTest)
#include "VantelButton_test.moc"
