#include "updater/installer_start.h"

namespace ravelin {

std::wstring installerParameters(std::wstring_view scope) {
    std::wstring parameters =
        L"/VERYSILENT /SUPPRESSMSGBOXES /NORESTART /SP- /CLOSEAPPLICATIONS "
        L"/NORESTARTAPPLICATIONS ";
    return parameters.append(scope).append(L" /RVNUPDATE=1");
}

}  // namespace ravelin
