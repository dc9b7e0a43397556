// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The desktop's trash: a file or folder moved there can be restored from any file manager
// (on Linux the desktops' shared trash folders, on Windows the recycle bin).
#include <string>
#include <string_view>

namespace platform {

// Moves the file or folder (a "\"-separated path) to the trash. False when there is no
// usable trash or the move fails; nothing has changed then.
bool MoveToTrash(std::string_view path) noexcept;

} // namespace platform
