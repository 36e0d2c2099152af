#include "rom/data_yaml.h"

#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace {

using namespace velko;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// Gives the same answer to every question, and counts them.
class FixedPrompt : public UserPrompt {
public:
    explicit FixedPrompt(bool ok) : m_ok(ok) { }

    void showMessage(std::string_view text, MessageIcon icon) override
    {
        require(icon == MessageIcon::kError && text == "Problem while parsing YAML.");
        ++errors;
    }
    bool askYesNo(std::string_view, MessageIcon) override { std::abort(); }
    YesNoCancel askYesNoCancel(std::string_view, MessageIcon) override { std::abort(); }

    int errors = 0;
    int questions = 0;

protected:
    bool confirm(std::string_view, std::string_view) override
    {
        ++questions;
        return m_ok;
    }

private:
    bool m_ok;
};

} // namespace

// Any bytes as `data.yaml`: nothing outside the configuration is touched (the sanitizers watch),
// and the way the reading ends agrees with what the user was shown.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto checkLine = [](std::string_view piece) { require(piece.ends_with("\nl")); };

    GameConfig patient;
    FixedPrompt ok(true);
    require(readDataYaml({data, size}, patient, ok, checkLine) == DataYamlResult::kDone);
    require(ok.errors <= 1);
    require(patient.roomCount() <= kMostRooms);

    GameConfig impatient;
    FixedPrompt cancel(false);
    const DataYamlResult result = readDataYaml({data, size}, impatient, cancel, {});
    require((result == DataYamlResult::kQuit) == (ok.questions > 0));
    require(cancel.questions == (ok.questions > 0 ? 1 : 0));
    if (result == DataYamlResult::kDone)
        require(impatient == patient && cancel.errors == ok.errors);
    return 0;
}
