#include "cli/room_workers.h"

#include "cli/game.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <map>
#include <mutex>
#include <optional>
#include <ostream>
#include <thread>
#include <vector>

namespace velko {

namespace {

// Each worker may hold pictures of hundreds of megabytes when a game is damaged.
constexpr unsigned kMostWorkers = 8;
constexpr std::uint32_t kProgressLines = 10;

// What the workers have in common.
class Shift {
public:
    Shift(const Context& context, std::uint32_t rooms) : m_context(context), m_rooms(rooms) { }

    // The next room that nobody works on; nothing when all are taken, or after a failure.
    std::optional<std::uint8_t> take()
    {
        // A room that was taken is done, so that the first one that fails is always the same.
        if (m_failed)
            return std::nullopt;
        const std::uint32_t room = m_next++;
        if (room >= m_rooms)
            return std::nullopt;
        return static_cast<std::uint8_t>(room);
    }

    void finish(std::uint8_t room, RoomOutcome outcome)
    {
        const std::scoped_lock lock(m_mutex);
        if (outcome.status == ExitStatus::kWrong)
            m_failed = true;
        if (outcome.status != ExitStatus::kFine)
            m_troubles.emplace(room, std::move(outcome));
        ++m_done;
        if (!m_failed && m_done * kProgressLines / m_rooms > m_told) {
            m_told = m_done * kProgressLines / m_rooms;
            m_context.err() << m_done << " of " << m_rooms << " rooms" << std::endl;
        }
    }

    // A failure is the only thing told then.
    ExitStatus report() const
    {
        for (const auto& [room, trouble] : m_troubles) {
            if (trouble.status == ExitStatus::kWrong)
                return m_context.fail(trouble.reason);
        }
        for (const auto& [room, trouble] : m_troubles)
            m_context.fail(trouble.reason);
        return m_troubles.empty() ? ExitStatus::kFine : ExitStatus::kFindings;
    }

private:
    const Context& m_context;
    const std::uint32_t m_rooms;
    std::atomic<std::uint32_t> m_next = 0;
    std::atomic<bool> m_failed = false;
    std::mutex m_mutex;
    std::map<std::uint8_t, RoomOutcome> m_troubles;
    std::uint32_t m_done = 0;
    std::uint32_t m_told = 0;
};

void work(EditorState& state, Shift& shift, const RoomJob& job)
{
    while (const auto room = shift.take())
        shift.finish(*room, job(state, *room));
}

} // namespace

ExitStatus forEachRoom(const Context& context, std::string_view rom, EditorState& state,
                       const RoomJob& job)
{
    const std::uint32_t rooms = state.config.roomCount();
    const std::uint32_t workers =
        std::min(std::clamp(std::thread::hardware_concurrency(), 1U, kMostWorkers), rooms);
    Shift shift(context, rooms);
    std::vector<std::future<void>> helpers;
    for (std::uint32_t i = 1; i < workers; ++i) {
        helpers.push_back(std::async(std::launch::async, [&] {
            EditorState own;
            // If the file has gone meanwhile, the others do its rooms.
            if (!openGame(context, rom, own))
                work(own, shift, job);
        }));
    }
    work(state, shift, job);
    for (std::future<void>& helper : helpers)
        helper.get(); // an exception goes on here
    return shift.report();
}

} // namespace velko
