// SPDX-License-Identifier: GPL-3.0-or-later
#include "mdns_search.h"

#include "announcement.h"

#ifdef ORB_HAVE_AVAHI
#include <avahi-client/client.h>
#include <avahi-client/lookup.h>
#include <avahi-common/address.h>
#include <avahi-common/error.h>
#include <avahi-common/simple-watch.h>

#include <array>
#include <mutex>
#include <system_error>
#include <thread>
#endif

namespace orb {

#ifdef ORB_HAVE_AVAHI

namespace {

constexpr int stepMs = 100;
constexpr const char* rawScpi = "_scpi-raw._tcp";
constexpr const char* lxi = "_lxi._tcp";

struct Search {
    std::mutex mutex;
    QList<Announcement> announcements;
    QString failure;
    bool ending = false;

    void fail(const QString& sentence)
    {
        const std::scoped_lock lock(mutex);
        failure = sentence;
        ending = true;
    }
    bool isEnding()
    {
        const std::scoped_lock lock(mutex);
        return ending;
    }
};

struct PollDeleter {
    void operator()(AvahiSimplePoll* poll) const { avahi_simple_poll_free(poll); }
};
struct ClientDeleter {
    void operator()(AvahiClient* client) const { avahi_client_free(client); }
};

QString noDaemon()
{
    return QStringLiteral("No Avahi daemon runs on this machine, so the network can't be searched. Type the address.");
}

// What the library calls back. All of it runs in the thread of the search.

void clientChanged(AvahiClient*, AvahiClientState state, void* search)
{
    if (state == AVAHI_CLIENT_FAILURE)
        static_cast<Search*>(search)->fail(noDaemon());
}

void resolved(AvahiServiceResolver* resolver, AvahiIfIndex, AvahiProtocol, AvahiResolverEvent event, const char* name,
              const char* type, const char*, const char*, const AvahiAddress* address, std::uint16_t port,
              AvahiStringList*, AvahiLookupResultFlags, void* search)
{
    if (event == AVAHI_RESOLVER_FOUND) {
        std::array<char, AVAHI_ADDRESS_STR_MAX> text{};
        avahi_address_snprint(text.data(), text.size(), address);
        const auto service =
            std::string_view(type) == rawScpi ? Announcement::Service::RawScpi : Announcement::Service::Lxi;
        auto& into = *static_cast<Search*>(search);
        const std::scoped_lock lock(into.mutex);
        into.announcements.append({service, QString::fromUtf8(name), QString::fromLatin1(text.data()), port});
    }
    avahi_service_resolver_free(resolver);
}

void browsed(AvahiServiceBrowser* browser, AvahiIfIndex interface, AvahiProtocol protocol, AvahiBrowserEvent event,
             const char* name, const char* type, const char* domain, AvahiLookupResultFlags, void* search)
{
    if (event != AVAHI_BROWSER_NEW)
        return;
    // A resolver that can't be made leaves one instrument out; it is freed when it has resolved.
    avahi_service_resolver_new(avahi_service_browser_get_client(browser), interface, protocol, name, type, domain,
                               AVAHI_PROTO_INET, AvahiLookupFlags{}, resolved, search);
}

void runSearch(Search& search)
{
    const std::unique_ptr<AvahiSimplePoll, PollDeleter> poll(avahi_simple_poll_new());
    const std::unique_ptr<AvahiClient, ClientDeleter> client(
        avahi_client_new(avahi_simple_poll_get(poll.get()), AvahiClientFlags{}, clientChanged, &search, nullptr));
    if (!client)
        return search.fail(noDaemon());
    for (const char* type : {rawScpi, lxi})
        avahi_service_browser_new(client.get(), AVAHI_IF_UNSPEC, AVAHI_PROTO_INET, type, nullptr, AvahiLookupFlags{},
                                  browsed, &search);
    while (!search.isEnding() && avahi_simple_poll_iterate(poll.get(), stepMs) == 0) {
    }
}

/// The library waits for the daemon, so a thread of its own calls it. That thread may outlive the search by one such
/// wait.
class MdnsSearch final : public NetworkSearch {
public:
    MdnsSearch()
    {
        try {
            std::thread([search = search_] { runSearch(*search); }).detach();
        } catch (const std::system_error&) {
            search_->fail(QStringLiteral("The network can't be searched now. Type the address."));
        }
    }
    ~MdnsSearch() override
    {
        const std::scoped_lock lock(search_->mutex);
        search_->ending = true;
    }
    MdnsSearch(const MdnsSearch&) = delete;
    MdnsSearch& operator=(const MdnsSearch&) = delete;

    QList<NetworkInstrument> found() const override
    {
        const std::scoped_lock lock(search_->mutex);
        return instrumentsOf(search_->announcements);
    }
    QString failure() const override
    {
        const std::scoped_lock lock(search_->mutex);
        return search_->failure;
    }

private:
    std::shared_ptr<Search> search_ = std::make_shared<Search>();
};

} // namespace

#else

namespace {

class MdnsSearch final : public NetworkSearch {
public:
    QList<NetworkInstrument> found() const override { return {}; }
    QString failure() const override
    {
        return QStringLiteral(
            "This program was built without Avahi, so the network can't be searched. Type the address.");
    }
};

} // namespace

#endif

std::unique_ptr<NetworkSearch> searchByMdns()
{
    return std::make_unique<MdnsSearch>();
}

} // namespace orb
