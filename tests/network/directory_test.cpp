// Lookups on a loaded world, oddities included: their answers are data for authors' sequences.
#include <gtest/gtest.h>

#include "foundation/convert.h"
#include "foundation/random.h"
#include "foundation/textfile.h"
#include "network/directory.h"
#include "support/tempdir.h"

namespace orrery {
namespace {

ServerDirectory World(const std::string &dns, std::initializer_list<std::pair<int, std::string>> servers) {
    test::TempDir dir;
    EXPECT_TRUE(WriteTextFile(dir.path() / "dns.dat", dns));
    for (const auto &[octet, text] : servers)
        EXPECT_TRUE(WriteTextFile(dir.path() / ("_" + IntText(octet) + "_.dat"), text));
    ServerDirectory world;
    world.LoadDns(dir.path());
    world.LoadServerRecords(dir.path());
    return world;
}

const std::string kDns = "17.201.44.9:sunbeam.org\r\n\r\nno colon here\r\n"
                         "1.2.3.45:long.net\r\n1.2.3.4:short.net\r\n8.8.8.8:Bank.COM\r\n";

ServerDirectory Sample() {
    return World(kDns, {{17, "ip=17.201.44.9:hostname=sunbeam.org:admin=Moira Tobin:os=linux:ports=4"},
                        {1, "  \r\nip=1.2.3.45:hostname=long.net:admin=Al Bo:os=bsd\r\n"
                            "ip=1.2.3.4:hostname=short.net:admin=Cy Do:os=plan9:::late=1\r\n"
                            "ip=1.2.3.4:a=1::::note=hidden\r\n"}});
}

TEST(ServerDirectory, ResolveAndExistsAnswerAsTheirScansDo) {
    const ServerDirectory world = Sample();
    EXPECT_EQ(world.DnsCount(), 4);
    struct Case {
        const char *host;
        const char *ip;
        const char *hostname;
        bool exists;
    };
    const Case cases[] = {
        {"SunBeam.org", "17.201.44.9", "sunbeam.org", true},
        {"sun_beam.org", "17.201.44.9", "Server Not Found", true},
        {" 1.2.3.4 ", "1.2.3.4", "short.net", true},
        {"Bank.COM", "Server Not Found", "Bank.COM", false},
        {"bank.com", "Server Not Found", "Bank.COM", false},
        {"", "Server Not Found", "Server Not Found", false},
        {"!!", "Server Not Found", "Server Not Found", false},
        {"nowhere.net", "Server Not Found", "Server Not Found", false},
    };
    for (const Case &c : cases) {
        std::string a = c.host, b = c.host, e = c.host;
        EXPECT_EQ(world.ResolveIp(a), c.ip) << c.host;
        EXPECT_EQ(world.ResolveHostname(b), c.hostname) << c.host;
        EXPECT_EQ(world.ServerExists(e), c.exists) << c.host;
    }
    std::string inPlace = " Sun_Beam.ORG ";
    world.ResolveIp(inPlace);
    EXPECT_EQ(inPlace, "sunbeam.org");
}

TEST(ServerDirectory, PropertiesFollowTheBitwiseTestAndFieldScan) {
    const ServerDirectory world = Sample();
    struct Case {
        const char *host;
        const char *property;
        const char *value;
    };
    const Case cases[] = {
        {"sunbeam.org", "OS", "linux"},
        {"sunbeam.org", "NAME", "sunbeam.org"},   // "hostname=" comes first and starts at 5
        {"sunbeam.org", "ports", "4"},
        {"sunbeam.org", "min", "Moira Tobin"},    // "admin=" holds it at position 3: 1 AND 3
        {"sunbeam.org", "dmin", "Not Found"},     // position 2: 1 AND 2 is 0
        {"1.2.3.4", "os", "bsd"},                 // answered from the record of 1.2.3.45
        {"short.net", "late", "1"},               // behind two empty fields
        {"1.2.3.4", "note", "Not Found"},         // behind three empty fields
        {"nowhere.net", "os", "Not Found"},
        {"sunbeam.org", " ", "Not Found"},
        {"Bank.COM", "os", "Not Found"},
        {"8.8.8.8", "os", "Not Found"},           // a directory row with no record
    };
    for (const Case &c : cases) {
        std::string host = c.host, property = c.property;
        EXPECT_EQ(world.GetServerProperty(host, property).value_or("<error>"), c.value)
            << c.host << " " << c.property;
    }
    std::string host = "SunBeam.org", property = " OS ";
    world.GetServerProperty(host, property);
    EXPECT_EQ(host, "17.201.44.9");
    EXPECT_EQ(property, "os=");

    const ServerDirectory odd = World("0.1.2.3:zero.net\r\n", {});
    host = "zero.net", property = "os";
    EXPECT_FALSE(odd.GetServerProperty(host, property));
}

TEST(ServerDirectory, IsValidIpTestsFormNotRange) {
    const std::pair<const char *, bool> cases[] = {
        {"1.2.3.4", true},     {"1.2.3.4 ", true},   {"999.1.1.1", true}, {"1.2.3", false},
        {"1.2.3.4.5", false},  {"1..3.4", false},    {"a.b.c.d", false},  {"", false},
        {"1.2.3.44444444444", false}, {"1.2.3.4444444444", true}, {"100.200.300.4", true},
    };
    for (const auto &[text, valid] : cases) EXPECT_EQ(IsValidIp(text), valid) << text;
}

TEST(ServerDirectory, RandomRowsNeverDrawTheLastOne) {
    Random random(3);
    const ServerDirectory empty = World("", {});
    EXPECT_EQ(empty.RandomExistingIp(random), "$randomexistingip");
    EXPECT_EQ(empty.RandomExistingHostname(random), "$randomexistinghostname");
    const ServerDirectory one = World("5.5.5.5:five.net", {});
    const ServerDirectory world = Sample();
    for (int i = 0; i < 200; ++i) {
        EXPECT_EQ(one.RandomExistingIp(random), "5.5.5.5");
        EXPECT_NE(world.RandomExistingHostname(random), "Bank.COM");
    }
}

TEST(ServerDirectory, OverflowsKeepWhatFitted) {
    std::string dns, records;
    for (int i = 1; i <= kDnsRows + 5; ++i) dns += "9.0.0." + IntText(i) + ":h" + IntText(i) + "\r\n";
    for (int i = 1; i <= kServerRows + 1; ++i) records += "ip=2.0.0." + IntText(i) + ":hostname=x\r\n";
    const ServerDirectory world = World(dns, {{1, "ip=1.1.1.1:os=a"}, {2, records}, {3, "ip=3.1.1.1:os=c"}});
    EXPECT_EQ(world.DnsCount(), kDnsRows + 1);
    std::string last = "h10000", past = "h10001";
    EXPECT_EQ(world.ResolveIp(last), "9.0.0.10000");
    EXPECT_EQ(world.ResolveIp(past), "Server Not Found");
    EXPECT_EQ(world.Server(1, 1), "ip=1.1.1.1:os=a");
    EXPECT_EQ(world.Server(kServerRows, 2), "ip=2.0.0.200:hostname=x");
    EXPECT_TRUE(world.Server(1, 3).empty());
}

} // namespace
} // namespace orrery
