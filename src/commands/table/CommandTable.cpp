#include "commands/table/CommandTable.h"

#include <vector>

std::span<CommandGroup const> CommandTable::allGroups() {
    static std::vector<CommandGroup> const all = [] {
        std::vector<CommandGroup> groups;
        for (auto const topic :
             {fileCommands, editCommands, arrangementCommands, contentCommands, filterCommands, selectionCommands,
              findCommands, viewCommands, toolsCommands, goToCommands, helpCommands, unlistedCommands}) {
            groups.insert(groups.end(), topic().begin(), topic().end());
        }
        return groups;
    }();
    return all;
}
