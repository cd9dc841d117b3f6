#pragma once

#include "ExitCodes.h"

namespace VelkTool {

/// Every case that leads to an exit code. The manual page and docs/faults.md list them.
inline constexpr ExitMeaning exitCases[] = {
    {Exit::Good, "every block is sound, with or without warnings"},
    {Exit::Good, "diff: the images have the same values"},
    {Exit::Findings, "a block is damaged, or bytes belong to no block"},
    {Exit::Findings, "check: a warning counts as an error by --error or --strict"},
    {Exit::Findings, "a file is empty, or lines of it are damaged"},
    {Exit::Findings, "no file has a block that --id or --nth asks for"},
    {Exit::Findings, "a folder holds no file to read"},
    {Exit::Findings, "the text of a block is cut, since it claims rows that it does not hold"},
    {Exit::Findings, "diff: the images differ"},
    {Exit::Findings, "get: a value is not there"},
    {Exit::Findings, "set: the block is missing or is one of several; nothing is changed"},
    {Exit::Findings,
     "add, copy, remove: a block is missing, damaged or one of several, or there is no room; nothing is changed"},
    {Exit::Findings, "table import: the text has errors; nothing is changed"},
    {Exit::Findings, "recover: bytes of a block are sound in no dump, or two dumps contradict each other"},
    {Exit::Findings, "redact: the image is written, but bytes without a known meaning are left in it"},
    {Exit::Findings, "a file is written, but its folder could not be synced"},
    {Exit::Usage, "a command, option or value is unknown, missing or out of range"},
    {Exit::Usage, "--offset is past the end of an image"},
    {Exit::Usage, "the output would overwrite an input"},
    {Exit::Usage, "set: the field does not exist, or cannot have the value; nothing is changed"},
    {Exit::Usage, "add, copy, remove: the end block, or an id with another layout; nothing is changed"},
    {Exit::Usage, "export: several tables would go to one CSV output"},
    {Exit::Usage, "table: blocks of the id have no text form that can be read back"},
    {Exit::NoAccess, "a file or folder cannot be read; the others are still read"},
    {Exit::NoAccess, "a file or standard output cannot be written"},
    {Exit::NoAccess, "a changed image cannot be written in its container"},
    {Exit::NoAccess, "redact: the image is refused; nothing is written"},
    {Exit::NoAccess, "memory runs out"},
};

}  // namespace VelkTool
