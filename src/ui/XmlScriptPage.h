#pragma once
// The "XML-Script" page (placeholder until it lands).
#include <QWidget>

class Dialogs;

class XmlScriptPage : public QWidget {
    Q_OBJECT
public:
    XmlScriptPage(Dialogs& dialogs, QWidget* parent = nullptr);
};
