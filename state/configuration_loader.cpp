#include "state/configuration_loader.h"

#include "gfx/resources.h"
#include "rom/data_yaml.h"
#include "rom/module_config.h"
#include "rom/name_lists.h"

namespace velko {

ConfigurationResult loadConfiguration(const std::filesystem::path& workFolder, EditorState& state,
                                      UserPrompt& prompt, const TraceSink& trace)
{
    const auto moduleFolder = readModuleConfig(workFolder);
    if (!moduleFolder) {
        prompt.showMessage("Can't open \"module.cfg\"!");
        return ConfigurationResult::kContinue;
    }
    if (loadDataYaml(*moduleFolder / "data.yaml", state.config, prompt, trace)
        == DataYamlResult::kQuit)
        return ConfigurationResult::kQuit;
    state.store.configure(state.config);
    // The palette and the bitmaps lie beside the program; modules have none of their own.
    if (const auto error = loadResources(workFolder, state.graphics, state.resources)) {
        prompt.showError(*error);
        return ConfigurationResult::kFailed;
    }
    loadNameLists(*moduleFolder, state.config.roomCount(), state.names);
    return ConfigurationResult::kContinue;
}

} // namespace velko
