#include "ui/FactionPropsPage.h"

FactionPropsPage::FactionPropsPage(Session&, Dialogs&, QWidget* parent) : QWidget(parent) {}
