#include "app/prompts/SettingPrompts.h"

#include "app/prompts/NumberAnswer.h"
#include "appearance/Theme.h"
#include "commands/SettingValue.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFontDatabase>

#include <algorithm>
#include <utility>

namespace {

using Prompts::StoreSetting;

QString tr(char const* text) {
    return QCoreApplication::translate("Prompts", text);
}

std::vector<OptionData> optionsOf(QStringList const& texts) {
    return {texts.cbegin(), texts.cend()};
}

/// Options that read differently from the value that they stand for.
std::vector<OptionData> optionsOf(std::initializer_list<std::pair<char const*, char const*>> textsAndValues) {
    std::vector<OptionData> options;
    for (auto const& [text, value] : textsAndValues) {
        options.emplace_back(tr(text));
        options.back().response = QLatin1String(value);
    }
    return options;
}

PromptStep answeredWith(PromptStep step, StoreSetting const& store) {
    step.carryOut = [store](QString const& answer, PromptAsker&) { store(answer.trimmed()); };
    return step;
}

PromptStep numberStep(Setting const& setting) {
    PromptStep step;
    step.text = QString::number(setting.range.clamp(setting.value.toInt()));
    step.complaint = [range = setting.range](QString const& answer) {
        return NumberAnswer::complaint(answer, range.least, range.most);
    };
    return step;
}

PromptStep choiceStep(std::vector<OptionData> options) {
    PromptStep step;
    step.options = std::move(options);
    step.noMatch = tr("No option matches.");
    step.complaint = [options = step.options](QString const& answer) {
        bool const offered = std::any_of(options.begin(), options.end(),
                                         [&](OptionData const& option) { return option.response == answer; });
        return offered ? QString() : tr("Must be one of the options.");
    };
    return step;
}

PromptStep pathStep(Setting const& setting) {
    PromptStep step;
    step.description = tr("The path of the program to open files with.");
    step.text = setting.value.toString();
    step.complaint = [](QString const& answer) {
        QFileInfo const file(answer.trimmed());
        return file.isFile() && file.isExecutable() ? QString() : tr("Invalid editor path.");
    };
    return step;
}

/// What is asked about an outside service.
struct ServiceWords {
    SettingType type;
    char const* title;
    char const* customTitle;
    char const* sample;
};

constexpr ServiceWords Services[] = {
    {SettingType::SearchEngine, QT_TRANSLATE_NOOP("Prompts", "Select a Search Engine Domain:"),
     QT_TRANSLATE_NOOP("Prompts", "Enter Custom Search Engine Domain:"), "example.com/find?query="},
    {SettingType::OnlineMap, QT_TRANSLATE_NOOP("Prompts", "Select a Map Domain:"),
     QT_TRANSLATE_NOOP("Prompts", "Enter Custom Map Domain:"), "example.com/maps?place="},
};

ServiceWords const& wordsOf(SettingType type) {
    return *std::find_if(std::begin(Services), std::end(Services) - 1,
                         [type](ServiceWords const& words) { return words.type == type; });
}

PromptStep customDomainStep(ServiceWords const& words) {
    PromptStep step;
    step.title = tr(words.customTitle);
    step.description = tr("You can include the resource and the key of the parameter. Otherwise <b>/search?q=</b> is "
                          "assumed.<br>The scheme and <b>www.</b> are optional.<br>Example: <b>%1</b>")
                           .arg(QLatin1String(words.sample));
    step.complaint = [](QString const& answer) {
        return answer.trimmed().isEmpty() ? tr("Must be the domain of a service.") : QString();
    };
    return step;
}

PromptStep domainStep(Setting const& setting, StoreSetting const& store) {
    ServiceWords const& words = wordsOf(setting.type);
    QString const custom = tr("Enter Custom Domain");
    PromptStep step = choiceStep(optionsOf({"duckduckgo.com", "google.com", "bing.com", custom}));
    step.title = tr(words.title);
    step.selected = setting.value.toString();
    step.carryOut = [custom, &words, store](QString const& answer, PromptAsker& asker) {
        if (answer == custom) {
            asker.ask(answeredWith(customDomainStep(words), store));
        } else {
            store(answer);
        }
    };
    return step;
}

/// The option that stands for the present value.
QString selectedOption(Setting const& setting, std::vector<OptionData> const& options) {
    QString const value = setting.dataType == SettingDataType::Theme
                              ? setting.toString(setting)
                              : SettingValue::toText(setting.dataType, setting.value);
    auto const option = std::find_if(options.begin(), options.end(), [&](OptionData const& each) {
        return each.response.compare(value, Qt::CaseInsensitive) == 0;
    });
    return option == options.end() ? QString() : option->response;
}

PromptStep stepFor(Setting const& setting) {
    switch (setting.dataType) {
    case SettingDataType::Integer:
    case SettingDataType::IntegerFromZero:
    case SettingDataType::IntegerFromOne: return numberStep(setting);
    case SettingDataType::Filepath: return pathStep(setting);
    case SettingDataType::Font: return choiceStep(optionsOf(QFontDatabase::families()));
    case SettingDataType::Theme: return choiceStep(optionsOf(Theme::getNamesList()));
    case SettingDataType::RefreshBehavior:
        return choiceStep(optionsOf({{QT_TRANSLATE_NOOP("Prompts", "Refresh"), "refresh"},
                                     {QT_TRANSLATE_NOOP("Prompts", "Ask"), "ask"},
                                     {QT_TRANSLATE_NOOP("Prompts", "Ignore"), "ignore"}}));
    case SettingDataType::UuidType:
        return choiceStep(optionsOf({{QT_TRANSLATE_NOOP("Prompts", "Random (v4)"), "v4"},
                                     {QT_TRANSLATE_NOOP("Prompts", "Time-ordered (v7)"), "v7"}}));
    default: return {};
    }
}

} // namespace

PromptStep Prompts::setting(Setting const& setting, StoreSetting const& store) {
    if (setting.dataType == SettingDataType::Domain)
        return domainStep(setting, store);
    PromptStep step = answeredWith(stepFor(setting), store);
    step.selected = selectedOption(setting, step.options);
    step.title = setting.type == SettingType::UUIDType ? tr("Select UUID type:") : setting.name + QLatin1Char(':');
    return step;
}
