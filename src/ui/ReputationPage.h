#pragma once
// The "Emphaty.ini" page (placeholder until its editor lands).
#include <QWidget>

#include "ui/RegistryView.h"

struct Session;
class Dialogs;

class ReputationPage : public QWidget, public RegistryView {
    Q_OBJECT
public:
    ReputationPage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);
    void ClearFactions() override {}
    void AddFactions(const std::vector<modFunctions::RegistryEntry>&) override {}
};
