// SPDX-License-Identifier: GPL-3.0-or-later
#include "compile/Compile.h"

#include "core/ProtocolLines.h"
#include "core/RunTogether.h"
#include "factionprops/FactionPropCompiler.h"
#include "initialworld/InitialWorldCompiler.h"
#include "reputation/EmphatyCompiler.h"

namespace compile {
namespace {

std::string CauseText() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown error";
    }
}

void Build(const Job& job, const progress::Report& report) {
    switch (job.file) {
    case GameFile::Emphaty:
        reputation::CompileEmphaty(job.projectFolder, job.factions, job.rows, report);
        return;
    case GameFile::FactionProp:
        factionprops::CompileFactionProp(job.projectFolder, job.factions, report);
        return;
    case GameFile::InitialWorld:
        initialworld::CompileInitialWorld(job.projectFolder, job.factions, job.rows, report);
        return;
    }
}

void WriteLine(const Job& job, const Protocol& protocol) {
    try {
        protocol(ProtocolLine(job.file));
    } catch (...) {
        throw ProtocolNotWritten();
    }
}

} // namespace

ProtocolNotWritten::ProtocolNotWritten() : std::runtime_error(CauseText()) {}

std::string_view ProtocolLine(GameFile file) {
    switch (file) {
    case GameFile::Emphaty:
        return protocol::EmphatyCompiled;
    case GameFile::FactionProp:
        return protocol::FactionPropCompiled;
    case GameFile::InitialWorld:
        return protocol::InitialWorldCompiled;
    }
    return {};
}

void Run(const Job& job, const Protocol& protocol, const progress::Report& report) {
    Build(job, report);
    WriteLine(job, protocol);
}

std::vector<std::exception_ptr> RunTogether(const std::vector<Job>& jobs, const Protocol& protocol) {
    std::vector<std::function<void()>> builds;
    builds.reserve(jobs.size());
    for (const Job& job : jobs)
        builds.emplace_back([&job] { Build(job, {}); });
    auto failures = together::Run(builds);
    std::exception_ptr protocolFailure;
    for (std::size_t i = 0; i < jobs.size() && !protocolFailure; ++i) {
        if (failures[i])
            continue;
        try {
            WriteLine(jobs[i], protocol);
        } catch (...) {
            protocolFailure = std::current_exception();
        }
    }
    if (protocolFailure)
        failures.push_back(protocolFailure);
    std::erase(failures, nullptr);
    return failures;
}

} // namespace compile
