// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Thin layer over the file system, in three parts: finding files (PathLookup), replacing
// them safely (FileReplacement) and folders (FolderOperations). Paths use "\" between pieces,
// as the project routines build them. A path is in the system's file-name encoding: the
// application folder as the system gave it, and every name from file contents converted to
// UTF-8 (DiskName) where it joins the path. Each system has its own implementation of the
// parts, in core/platform/posix and core/platform/windows; the build picks one.
#include "core/FileReplacement.h"
#include "core/FolderOperations.h"
#include "core/PathLookup.h"
#include "core/platformBasics.h"
