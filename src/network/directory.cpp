// The server directory: loading, the first-match indexes, and the lookups.
#include "network/directory.h"

#include <algorithm>

#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/text.h"
#include "foundation/textfile.h"

namespace orrery {

namespace fs = std::filesystem;

namespace {

std::size_t ServerIndex(int row, int octet) {
    return static_cast<std::size_t>(octet - 1) * kServerRows + static_cast<std::size_t>(row - 1);
}

void InsertFirst(std::unordered_map<std::string, int> &index, const std::string &key, int row) {
    if (!key.empty()) index.try_emplace(key, row);
}

} // namespace

bool IsValidIp(std::string_view text) {
    std::string t = NormText(text);
    if (t.size() >= 17) return false;
    std::string point = ".";
    if (CountMatches(t, point) != 3) return false;
    for (std::int16_t part = 1; part <= 4; ++part)
        if (!IsNumeric(FieldBy(t, part, "."))) return false;
    return true;
}

ServerDirectory::ServerDirectory()
    : m_dns(kDnsRows + 1), m_servers(static_cast<std::size_t>(kOctets) * kServerRows),
      m_lowerServers(m_servers.size()) {}

const std::string &ServerDirectory::Server(int row, int octet) const {
    return m_servers.at(ServerIndex(row, octet));
}

void ServerDirectory::LoadDns(const fs::path &folder) {
    const auto bytes = ReadFileBytes(folder / "dns.dat");
    int count = 0;
    if (bytes) {
        for (std::string_view line : SplitLines(*bytes)) {
            if (line.find(':') == std::string_view::npos) continue;
            if (++count > kDnsRows) break;
            m_dns[static_cast<std::size_t>(count)] = {FieldAt(line, 1), FieldAt(line, 2)};
        }
    }
    m_dnsCount = count;
    IndexDns();
}

void ServerDirectory::LoadServerRecords(const fs::path &folder) {
    for (int octet = 1; octet <= kOctets; ++octet) {
        const auto bytes = ReadFileBytes(folder / ("_" + IntText(octet) + "_.dat"));
        if (!bytes) continue;
        int row = 0;
        bool overflow = false;
        for (std::string_view line : SplitLines(*bytes)) {
            std::string record = Trim(line);
            if (record.empty()) continue;
            if (++row > kServerRows) {
                overflow = true;
                break;
            }
            m_lowerServers[ServerIndex(row, octet)] = LowerCase(record);
            m_servers[ServerIndex(row, octet)] = std::move(record);
        }
        if (overflow) break;
    }
    IndexServers();
}

void ServerDirectory::IndexDns() {
    m_exactRow.clear();
    m_foldedRow.clear();
    for (int row = 1; row <= kDnsRows; ++row) {
        const DnsRow &dns = m_dns[static_cast<std::size_t>(row)];
        InsertFirst(m_exactRow, dns.ip, row);
        InsertFirst(m_exactRow, dns.hostname, row);
        InsertFirst(m_foldedRow, NormText(dns.ip), row);
        InsertFirst(m_foldedRow, NormText(dns.hostname), row);
    }
}

void ServerDirectory::IndexServers() {
    static constexpr std::string_view kIpKey = "ip=";
    for (int octet = 1; octet <= kOctets; ++octet) {
        std::vector<IpMark> &marks = m_ipMarks[static_cast<std::size_t>(octet)];
        marks.clear();
        for (int row = 1; row <= kServerRows; ++row) {
            const std::string_view record = m_lowerServers[ServerIndex(row, octet)];
            for (auto at = record.find(kIpKey); at != std::string_view::npos;
                 at = record.find(kIpKey, at + 1))
                marks.push_back({record.substr(at + kIpKey.size()), row});
        }
        std::sort(marks.begin(), marks.end(), [](const IpMark &a, const IpMark &b) {
            return a.rest < b.rest || (a.rest == b.rest && a.row < b.row);
        });
    }
}

int ServerDirectory::FirstRow(const std::unordered_map<std::string, int> &index,
                              const std::string &key) const {
    if (key.empty()) return 0;
    const auto found = index.find(key);
    return found == index.end() ? 0 : found->second;
}

std::string ServerDirectory::ResolveIp(std::string &host) const {
    host = NormText(StripPunctuation(host));
    const int row = FirstRow(m_exactRow, host);
    return row ? m_dns[static_cast<std::size_t>(row)].ip : std::string(kServerNotFound);
}

std::string ServerDirectory::ResolveHostname(std::string &host) const {
    host = NormText(host);
    const int row = FirstRow(m_foldedRow, host);
    return row ? m_dns[static_cast<std::size_t>(row)].hostname : std::string(kServerNotFound);
}

bool ServerDirectory::ServerExists(std::string &host) const {
    host = NormText(StripPunctuation(host));
    return FirstRow(m_exactRow, host) != 0;
}

// The rows of an octet whose record holds "ip=" and the host anywhere, in row order: the
// only records a property lookup can answer from.
std::vector<int> ServerDirectory::CandidateRows(int octet, const std::string &lowerHost) const {
    const std::vector<IpMark> &marks = m_ipMarks[static_cast<std::size_t>(octet)];
    auto mark = std::lower_bound(marks.begin(), marks.end(), lowerHost,
                                 [](const IpMark &m, const std::string &h) { return m.rest < h; });
    std::vector<int> rows;
    for (; mark != marks.end() && mark->rest.starts_with(lowerHost); ++mark) rows.push_back(mark->row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::optional<std::string> ServerDirectory::GetServerProperty(std::string &host,
                                                              std::string &property) const {
    host = Trim(host);
    property = Trim(property);
    host = Trim(ResolveIp(host));
    if (host.empty() || property.empty() || host.find('.') == std::string::npos)
        return std::string(kNotFound);
    property = NormText(property) + "=";
    const auto octet = ToInt16(host.substr(0, host.find('.')));
    if (!octet || *octet < 1 || *octet > kOctets) return std::nullopt;

    const std::string lowerHost = LowerCase(host);
    const std::string needle = "ip=" + lowerHost;
    for (int row : CandidateRows(*octet, lowerHost)) {
        const std::string &record = m_lowerServers[ServerIndex(row, *octet)];
        const std::size_t a = InStr(record, needle);
        for (std::int16_t k = 1; k <= 50; ++k) {
            const std::string part = FieldAt(record, k);
            // One or two empty fields in a row don't end a record; three do.
            if (part.empty() && FieldAt(record, k + 1).empty() && FieldAt(record, k + 2).empty())
                break;
            // The positions are combined bit by bit: a property that starts at an even
            // position of its field doesn't match a well-formed record.
            if ((a & InStr(part, property)) == 0) continue;
            const std::string original = FieldAt(Server(row, *octet), k);
            return Trim(original.substr(original.find('=') + 1));
        }
    }
    return std::string(kNotFound);
}

int ServerDirectory::RandomRow(Random &random) const {
    const double n = m_dnsCount - 1;
    const double row = IntFloor(random.Unit() * n) + 1;
    return row >= 1 && row <= kDnsRows ? static_cast<int>(row) : 0;
}

std::string ServerDirectory::RandomExistingIp(Random &random) const {
    const int row = RandomRow(random);
    return row ? m_dns[static_cast<std::size_t>(row)].ip : "$randomexistingip";
}

std::string ServerDirectory::RandomExistingHostname(Random &random) const {
    const int row = RandomRow(random);
    return row ? m_dns[static_cast<std::size_t>(row)].hostname : "$randomexistinghostname";
}

} // namespace orrery
