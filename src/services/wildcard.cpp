#include "services/wildcard.h"

bool FitsWildcard(QStringView name, QStringView pattern)
{
    if (pattern == u"*.*")
        return true;
    qsizetype at = 0, in = 0;
    qsizetype star = -1, from = 0; // the last "*", and what of the name it has left for the rest
    while (at < name.size()) {
        const bool any = in < pattern.size() && pattern[in] == QLatin1Char('*');
        if (any) {
            star = in++;
            from = at;
        } else if (in < pattern.size() &&
                   (pattern[in] == QLatin1Char('?') || pattern[in].toCaseFolded() == name[at].toCaseFolded())) {
            ++in, ++at;
        } else if (star >= 0) {
            in = star + 1;
            at = ++from;
        } else {
            return false;
        }
    }
    while (in < pattern.size() && pattern[in] == QLatin1Char('*'))
        ++in;
    return in == pattern.size();
}
