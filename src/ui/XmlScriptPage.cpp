#include "ui/XmlScriptPage.h"

XmlScriptPage::XmlScriptPage(Dialogs&, QWidget* parent) : QWidget(parent) {}
