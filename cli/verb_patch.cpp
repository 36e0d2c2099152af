#include "cli/verb_patch.h"

#include "cli/arguments.h"
#include "cli/output_file.h"
#include "patch/bps_patch.h"
#include "patch/ips_patch.h"
#include "rom/file_io.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

namespace velko {

namespace {

using Bytes = std::span<const std::uint8_t>;

struct PatchFormat {
    std::string_view extension;
    std::string_view magic;
    PatchResult (*make)(Bytes source, Bytes target);
    PatchResult (*apply)(Bytes source, Bytes patch);
};

constexpr std::array kFormats = {
    PatchFormat{".ips", kIpsMagic, makeIpsPatch, applyIpsPatch},
    PatchFormat{".bps", kBpsMagic, makeBpsPatch, applyBpsPatch},
};

// Extensions count in either case.
const PatchFormat* formatOfName(std::string_view name)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    for (const PatchFormat& format : kFormats) {
        if (name.size() >= format.extension.size()
            && std::ranges::equal(name.substr(name.size() - format.extension.size()),
                                  format.extension, {}, lower))
            return &format;
    }
    return nullptr;
}

const PatchFormat* formatOfPatch(Bytes patch)
{
    for (const PatchFormat& format : kFormats) {
        if (patch.size() >= format.magic.size()
            && std::equal(format.magic.begin(), format.magic.end(), patch.begin()))
            return &format;
    }
    return nullptr;
}

class PatchVerb : public Verb {
public:
    void declare(CLI::App& command) override
    {
        command.require_subcommand(1);
        m_make = command.add_subcommand("make", "Make the patch that turns OLD into NEW");
        m_make->add_option("OLD", m_old, "The file that the patch is for")
            ->required()
            ->type_name("");
        m_make->add_option("NEW", m_new, "What the patch makes of it")->required()->type_name("");
        addOutput(*m_make, m_output, "The patch; its name ends in .ips or .bps");
        m_apply = command.add_subcommand("apply", "Apply a patch, IPS or BPS, to a ROM");
        addRom(*m_apply, m_old);
        m_apply->add_option("PATCH", m_patch, "The patch")->required()->type_name("");
        addOutput(*m_apply, m_output, "The patched ROM");
    }

    ExitStatus run(const Context& context) override
    {
        return m_make->parsed() ? make(context) : apply(context);
    }

private:
    ExitStatus make(const Context& context) const
    {
        const PatchFormat* format = formatOfName(m_output);
        if (format == nullptr)
            return context.fail(m_output + ": the name of a patch ends in .ips or .bps");
        return patch(context, m_new,
                     [&](Bytes old, Bytes other) { return format->make(old, other); });
    }

    ExitStatus apply(const Context& context) const
    {
        return patch(context, m_patch, [](Bytes old, Bytes other) {
            const PatchFormat* format = formatOfPatch(other);
            return format != nullptr ? format->apply(old, other)
                                     : PatchResult::damaged("neither an IPS nor a BPS patch");
        });
    }

    // Reads the two files, and writes what `work` makes of them. What is wrong is told of the
    // second one: the new file, or the patch.
    ExitStatus patch(const Context& context, const std::string& second, auto work) const
    {
        const auto old = loadFile(context.path(m_old));
        if (!old)
            return context.fail(m_old + ": cannot be read, or is empty");
        const auto other = loadFile(context.path(second));
        if (!other)
            return context.fail(second + ": cannot be read, or is empty");
        const PatchResult result = work(*old, *other);
        if (!result.ok())
            return context.fail(second + ": " + result.reason,
                                result.status == PatchStatus::kRefused ? ExitStatus::kFindings
                                                                       : ExitStatus::kWrong);
        if (const auto reason = writeFile(context.path(m_output), result.bytes))
            return context.fail(*reason);
        return ExitStatus::kFine;
    }

    CLI::App* m_make = nullptr;
    CLI::App* m_apply = nullptr;
    std::string m_old;
    std::string m_new;
    std::string m_patch;
    std::string m_output;
};

} // namespace

std::unique_ptr<Verb> makePatchVerb()
{
    return std::make_unique<PatchVerb>();
}

} // namespace velko
