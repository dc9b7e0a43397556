#pragma once
// The desktop's trash: a file or folder moved there can be restored from any file manager.
// The shared layout of desktop trash folders: a "files" folder with the items and an "info"
// folder with one ".trashinfo" file per item telling where it came from and when.
#include <string>
#include <string_view>

namespace platform {

// Moves the file or folder (a "\"-separated path) to the trash of the user's home when it is
// on the same volume, else to the trash at the top of its own volume. False when there is no
// usable trash or the move fails; nothing has changed then.
bool MoveToTrash(std::string_view path) noexcept;

// The home trash folder: $XDG_DATA_HOME/Trash, else ~/.local/share/Trash; empty without either.
std::string HomeTrash();

} // namespace platform
