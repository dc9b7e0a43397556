#include "ui/ReputationPage.h"

ReputationPage::ReputationPage(Session&, Dialogs&, QWidget* parent) : QWidget(parent) {}
