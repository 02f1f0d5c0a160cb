// The index of names for the substitution passes, and the run-time variable table.
#include "actions/substitution.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory_resource>
#include <queue>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace orrery {

namespace {

std::size_t Byte(char c) {
    return static_cast<unsigned char>(c);
}

// A stretch of text that a replacement took out or put in: [begin, end).
struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
};

} // namespace

// The state of a replay: how often the text holds each name now, and the names it holds by
// the walk and the position that will replace them next. A walk is all names at once, or one
// length of name after another, longest first; each walk begins again at the first position.
class NameIndex::Walk {
public:
    Walk(const NameIndex &index, bool byLength, std::pmr::memory_resource *memory)
        : m_index(index), m_byLength(byLength), m_count(memory), m_due(std::greater<>(), memory) {}

    // Counts every name the text holds, afresh.
    void CountAll(std::string_view text) {
        m_count.clear();
        for (const char lead : m_index.m_leads)
            for (std::size_t at = text.find(lead); at != std::string_view::npos;
                 at = text.find(lead, at + 1))
                for (std::size_t g = 0; g < m_index.m_groups.size(); ++g) Look(text, g, at, +1);
    }

    // Counts, with the sign given, the names that overlap one of the spans, or that cross the
    // place of an empty one. The spans are in order and don't overlap; each start is looked at
    // once, from the window of the first span that it can reach.
    void CountAround(std::string_view text, const std::vector<Span> &spans, int sign) {
        if (m_index.m_groups.empty()) return;
        const std::size_t longest = m_index.m_groups.front().length;
        std::size_t next = 0; // the first start not yet looked at
        for (std::size_t i = 0; i < spans.size(); ++i) {
            const std::size_t lo =
                std::max(next, spans[i].begin + 1 > longest ? spans[i].begin + 1 - longest : 0);
            const std::string_view starts = text.substr(0, std::max(lo, spans[i].end));
            for (const char lead : m_index.m_leads)
                for (std::size_t at = starts.find(lead, lo); at != std::string_view::npos;
                     at = starts.find(lead, at + 1))
                    for (std::size_t g = 0; g < m_index.m_groups.size(); ++g)
                        if (Touches(spans, i, at, m_index.m_groups[g].length))
                            Look(text, g, at, sign);
            next = std::max(next, starts.size());
        }
    }

    // The starts looked at for a name of some length so far.
    std::size_t Looks() const { return m_looks; }

    // The next name to replace and its position; false when none is left.
    bool Next(int &position, int &id) {
        while (!m_due.empty()) {
            const Due due = m_due.top();
            m_due.pop();
            if (due.walk < m_walk || (due.walk == m_walk && due.position <= m_cursor) ||
                Count(due.id) == 0)
                continue;
            m_walk = due.walk;
            m_cursor = position = due.position;
            id = due.id;
            return true;
        }
        return false;
    }

private:
    // Whether a name of that length at that start overlaps span i or a later one.
    static bool Touches(const std::vector<Span> &spans, std::size_t i, std::size_t at,
                        std::size_t length) {
        for (; i < spans.size() && spans[i].begin < at + length; ++i)
            if (at < spans[i].end) return true; // an empty span: at < begin, so it crosses
        return false;
    }

    struct Due {
        long walk = 0;
        int position = 0;
        int id = 0;
        bool operator>(const Due &other) const {
            return std::tie(walk, position, id) > std::tie(other.walk, other.position, other.id);
        }
    };

    int Count(int id) const {
        const auto found = m_count.find(id);
        return found == m_count.end() ? 0 : found->second;
    }

    void Look(std::string_view text, std::size_t g, std::size_t at, int sign) {
        ++m_looks;
        const Group &group = m_index.m_groups[g];
        if (at + group.length > text.size() || !group.first[Byte(text[at])] ||
            !group.last[Byte(text[at + group.length - 1])])
            return;
        const auto found = group.ids.find(text.substr(at, group.length));
        if (found == group.ids.end()) return;
        int &count = m_count[found->second];
        count += sign;
        if (sign > 0 && count == 1) Schedule(found->second, group.length);
    }

    // The name's next position in its walk, unless that walk is over.
    void Schedule(int id, std::size_t length) {
        const long walk = m_byLength ? -static_cast<long>(length) : 0;
        if (walk < m_walk) return;
        const int after = walk == m_walk ? m_cursor : 0;
        const std::vector<int> &positions = m_index.m_names[static_cast<std::size_t>(id)].positions;
        const auto next = std::upper_bound(positions.begin(), positions.end(), after);
        if (next != positions.end()) m_due.push({walk, *next, id});
    }

    const NameIndex &m_index;
    bool m_byLength;
    std::size_t m_looks = 0;
    std::pmr::unordered_map<int, int> m_count;      // by name: a text holds few of a table's names
    long m_walk = std::numeric_limits<long>::min(); // the walk under way
    int m_cursor = 0;                               // the position it replaced last
    std::priority_queue<Due, std::pmr::vector<Due>, std::greater<>> m_due;
};

void NameIndex::Add(std::string_view name, int position) {
    if (name.empty()) return;
    auto group = std::find_if(m_groups.begin(), m_groups.end(),
                              [&](const Group &g) { return g.length <= name.size(); });
    if (group == m_groups.end() || group->length != name.size()) {
        group = m_groups.insert(group, Group{});
        group->length = name.size();
    }
    if (!group->first[Byte(name.front())]) group->firstBytes += name.front();
    if (m_leads.find(name.front()) == std::string::npos) m_leads += name.front();
    group->first[Byte(name.front())] = true;
    group->last[Byte(name.back())] = true;
    auto found = group->ids.find(name);
    if (found == group->ids.end()) {
        found = group->ids.emplace(name, static_cast<int>(m_names.size())).first;
        m_names.push_back({std::string(name), {}});
    }
    m_names[static_cast<std::size_t>(found->second)].positions.push_back(position);
}

void NameIndex::Clear() {
    m_groups.clear();
    m_names.clear();
    m_leads.clear();
}

std::size_t NameIndex::ReplaceEachLength(std::string &text, const ValueOf &valueOf) const {
    return Replay(text, valueOf, true);
}

std::size_t NameIndex::ReplaceInOrder(std::string &text, const ValueOf &valueOf) const {
    return Replay(text, valueOf, false);
}

// Each replacement is ReplaceAll of the name: every occurrence, left to right, without overlap.
// The names counted in what it took out are gone, and those in what it put in are new; all
// others are where they were.
std::size_t NameIndex::Replay(std::string &text, const ValueOf &valueOf, bool byLength) const {
    // A text holds a few names as a rule: what the walk keeps then fits on the stack.
    std::array<std::byte, 2048> stack;
    std::pmr::monotonic_buffer_resource memory(stack.data(), stack.size());
    Walk walk(*this, byLength, &memory);
    walk.CountAll(text);
    std::size_t built = 0;
    std::vector<Span> out, in;
    for (int position = 0, id = 0; walk.Next(position, id);) {
        const std::string &name = m_names[static_cast<std::size_t>(id)].text;
        const std::string value = valueOf(position, name);
        // Round a few replacements the walk counts again; round many, it reads the whole text.
        const std::size_t reach = name.size() + value.size() + 2 * m_groups.front().length;
        bool few = true;
        out.clear();
        in.clear();
        std::string result;
        result.reserve(text.size());
        std::size_t done = 0;
        for (std::size_t hit = text.find(name); hit != std::string::npos;
             hit = text.find(name, done)) {
            result.append(text, done, hit - done);
            few = few && (out.size() + 1) * reach < text.size();
            if (few) {
                out.push_back({hit, hit + name.size()});
                in.push_back({result.size(), result.size() + value.size()});
            }
            result += value;
            done = hit + name.size();
        }
        result.append(text, done);
        if (few) {
            walk.CountAround(text, out, -1);
            walk.CountAround(result, in, +1);
        } else {
            walk.CountAll(result);
        }
        text = std::move(result);
        built += text.size();
    }
    return built + walk.Looks() * kLookWork;
}

void RuntimeVariables::Set(int row, Variable variable) {
    m_rows[row] = std::move(variable);
    m_stale = true;
}

void RuntimeVariables::Clear() {
    for (int row = 1; row <= kSize; ++row) m_rows[row] = {};
    m_stale = true;
}

const RuntimeVariables::Names &RuntimeVariables::Index() const {
    if (!m_stale) return m_names;
    const auto blank = [this](int row) { return row > kSize || IsBlank(m_rows[row].name); };
    m_names.firstRow.clear();
    m_names.substituted.Clear();
    std::string name;
    for (int row = 1; row <= kSize; ++row) {
        // Walks stop at the first row where this name and the next two are blank.
        if (blank(row) && blank(row + 1) && blank(row + 2)) break;
        AssignNormText(name, m_rows[row].name);
        m_names.firstRow.emplace(name, row);
        if (name.size() <= kLongestSubstituted) m_names.substituted.Add(name, row);
    }
    m_stale = false;
    return m_names;
}

} // namespace orrery
