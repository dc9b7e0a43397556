// SPDX-License-Identifier: GPL-3.0-or-later
// The project check: the rules, one file each by the file they judge (see Inspection.h),
// run in turn over one project.
#include "check/ProjectCheck.h"

#include "check/Inspection.h"
#include "core/modFunctions.h"
#include "core/platform.h"

namespace check {

std::vector<Finding> CheckProject(std::string_view appDir, std::string_view project) {
    Inspection inspection(modFunctions::ProjectPath(appDir, project));
    const std::string& folder = inspection.Layout().Folder();
    if (!platform::IsDirectory(folder))
        throw platform::FileError(folder, "the project folder does not exist");
    CheckRegistry(inspection);
    CheckEvents(inspection);
    CheckEmpathy(inspection);
    CheckProperties(inspection);
    CheckLists(inspection);
    CheckInitialWorld(inspection);
    return inspection.TakeFindings();
}

} // namespace check
