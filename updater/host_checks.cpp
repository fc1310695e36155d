#include "updater/host_checks.h"

#include "product.h"

namespace ravelin {

const std::vector<HostCheck>& hostChecks() {
    static const std::string web = product::webHost;
    static const std::string api = product::apiHost;
    static const std::string tester = product::testerHost;
    static const std::string unrelated = product::unrelatedHost;
    static const std::string file = "/download/ravelin-setup.exe";
    static const std::vector<HostCheck> checks{
        {"https://" + web + file, true, "host: " + web + " allowed"},
        {"https://" + api + file, true, "host: " + api + " allowed"},
        {"https://" + web + '.' + unrelated + file, false, "host: look-alike subdomain rejected"},
        {"https://" + web + '@' + unrelated + file, false, "host: userinfo trick rejected"},
        {"https://" + web + ":8443" + file, false, "host: explicit port rejected"},
        {"https://" + unrelated + file, false, "host: other site rejected"},
        {"http://" + web + file, false, "host: plain http rejected"},
        {"https://" + tester + file, false, "host: tester site rejected"},
    };
    return checks;
}

}  // namespace ravelin
