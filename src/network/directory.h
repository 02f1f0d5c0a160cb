// The loaded world: the directory of addresses and host names, the server records, and every
// lookup on them.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace orrery {

class Random;

inline constexpr int kDnsRows = 10000;
inline constexpr int kServerRows = 200; // records per first octet
inline constexpr int kOctets = 255;

inline constexpr std::string_view kServerNotFound = "Server Not Found";
inline constexpr std::string_view kNotFound = "Not Found";

struct DnsRow {
    std::string ip;
    std::string hostname;
};

// True when the text has the form of an address: under 17 characters, three points, and four
// numeric parts. There is no range test.
bool IsValidIp(std::string_view text);

// DnsTable and ServerTable of one world, read-only once loaded. Lookups answer as a scan from
// row 1 would, through indexes built at load.
class ServerDirectory {
public:
    ServerDirectory();

    // Reads <folder>/dns.dat: every line with a ":" is a row. Past 10,000 rows reading stops
    // and the count reads 10,001. No file leaves the count at 0.
    void LoadDns(const std::filesystem::path &folder);
    // Reads <folder>/_1_.dat to _255_.dat, trimmed non-blank lines in order. A file with more
    // than 200 records ends loading there: the octets above it stay empty.
    void LoadServerRecords(const std::filesystem::path &folder);

    int DnsCount() const { return m_dnsCount; }
    const DnsRow &Dns(int row) const { return m_dns.at(static_cast<std::size_t>(row)); }
    const std::string &Server(int row, int octet) const;

    // The address of a host name or address, or "Server Not Found". The argument becomes its
    // sanitised name form (punctuation stripped, lower case): an exact match is then needed.
    std::string ResolveIp(std::string &host) const;
    // The host name as stored, or "Server Not Found". The argument becomes its name form, and
    // the rows are compared in name form too, so case never matters here.
    std::string ResolveHostname(std::string &host) const;
    bool ServerExists(std::string &host) const;
    // A field of a server's record, or "Not Found". The host becomes its address, the
    // property its name form followed by "=". nullopt when the address's first octet is no
    // number from 1 to 255.
    std::optional<std::string> GetServerProperty(std::string &host, std::string &property) const;

    // A random directory row's address or host name; the last row is never drawn. The names
    // of the variables when there is no row to draw.
    std::string RandomExistingIp(Random &random) const;
    std::string RandomExistingHostname(Random &random) const;

private:
    // A place where "ip=" stands in a record: the lower-case text behind it, and the row.
    struct IpMark {
        std::string_view rest;
        int row;
    };

    int FirstRow(const std::unordered_map<std::string, int> &index, const std::string &key) const;
    int RandomRow(Random &random) const;
    std::vector<int> CandidateRows(int octet, const std::string &lowerHost) const;
    void IndexDns();
    void IndexServers();

    std::vector<DnsRow> m_dns; // rows 1 to 10,000
    int m_dnsCount = 0;
    std::vector<std::string> m_servers;      // row-major per octet: [octet][row]
    std::vector<std::string> m_lowerServers; // the same in lower case, for the searches
    std::unordered_map<std::string, int> m_exactRow;  // address or host name -> first row
    std::unordered_map<std::string, int> m_foldedRow; // their name forms -> first row
    std::array<std::vector<IpMark>, kOctets + 1> m_ipMarks; // per octet, sorted by text
};

} // namespace orrery
