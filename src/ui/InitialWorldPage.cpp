#include "ui/InitialWorldPage.h"

InitialWorldPage::InitialWorldPage(Session&, Dialogs&, QWidget* parent) : QWidget(parent) {}
