#pragma once

#include "app/launcher/PromptStep.h"
#include "commands/Setting.h"

#include <functional>

namespace Prompts {

/// Takes the new value of a setting, as the settings file would write it.
using StoreSetting = std::function<void(QString const& value)>;

/// Asks for a new value of a setting that is no switch. The kind of its value says what is asked and what is good.
PromptStep setting(Setting const& setting, StoreSetting const& store);

} // namespace Prompts
