#pragma once

#include <string>
#include <vector>

/// What the folders may know of each other, read off the text of one file. Paths are relative to the top of
/// the source tree ("src/desk/ZelvoHIDDevice.cpp"). Each finding is one line, "path:line: what is wrong".
namespace ArchitectureRules {
using Findings = std::vector<std::string>;

/// The arrows between folders: shell -> screens -> ui -> data -> platform and shell, screens -> desk -> data
/// -> platform; backends only where the program is put together; the simulator apart from everything.
Findings wrongIncludes(const std::string& path, const std::string& text);

/// Clocks and timers anywhere but behind RunLoop: they would tick on while a test's virtual time stands.
Findings forbiddenClocks(const std::string& path, const std::string& text);

/// Classes of the headers of src/data and src/desk that do not stand in a file of their own name. A delegate
/// or another class whose name begins with the file's belongs to it.
Findings misplacedClasses(const std::string& path, const std::string& text);

/// Paths of the machine that the text was written on.
Findings machinePaths(const std::string& path, const std::string& text);

/// All rules that apply to a file at this path.
Findings all(const std::string& path, const std::string& text);

/// The text without its comments, line for line.
std::string withoutComments(const std::string& text);
}
