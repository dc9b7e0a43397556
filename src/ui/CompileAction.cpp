// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/CompileAction.h"

#include "ui/Dialogs.h"
#include "ui/Session.h"

namespace compileAction {

void Run(Dialogs& dialogs, const Session& session, const compile::Job& job, const QString& failure,
         std::vector<progressrun::Bar> bars) {
    const progressrun::Show show = progressrun::OnBars(std::move(bars));
    const auto protocol = [&session](std::string_view line) { session.WriteProtocol(line); };
    dialogs.Attempt(
        [&] {
            progressrun::Run(
                [&](const progress::Report& report) { compile::Run(job, protocol, report); }, show);
        },
        [&failure](const std::exception& error) {
            const bool compiled = dynamic_cast<const compile::ProtocolNotWritten*>(&error);
            return Dialogs::Told(
                compiled ? QStringLiteral("The protocol could not be written.") : failure, error);
        });
}

} // namespace compileAction
