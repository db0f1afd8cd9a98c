#include "FillSearch.h"

namespace qxmix {

namespace {

/// Takes bundles out, from the most expensive ones on, until none can be taken out.
Bundles TakeOut(TriedLoadings& loadings, Bundles bundles) {
    for (bool isLess = true; isLess;) {
        isLess = false;
        for (const std::size_t cassette : loadings.ByPrice()) {
            Bundles oneLess = bundles;
            if (bundles[cassette] == 0) {
                continue;
            }
            --oneLess[cassette];
            if (loadings.DoesReach(oneLess)) {
                bundles[cassette] = loadings.FewestOf(cassette, oneLess);
                isLess = true;
            }
        }
    }
    return bundles;
}

/// Puts a bundle into one cassette and takes out of another what is worth more, if that reaches.
bool Exchange(TriedLoadings& loadings, Bundles& bundles, std::size_t into, std::size_t out) {
    const FillSpace& space = loadings.Space();
    if (into == out || bundles[into] == space.most[into] || bundles[out] == 0) {
        return false;
    }
    Bundles exchanged = bundles;
    ++exchanged[into];
    std::uint32_t taken = 1;
    while (taken < bundles[out] && !(space.PriceOfSome(into, 1) < space.PriceOfSome(out, taken))) {
        ++taken;
    }
    exchanged[out] -= taken;
    if (!(loadings.PriceOf(exchanged) < loadings.PriceOf(bundles)) ||
        !loadings.DoesReach(exchanged)) {
        return false;
    }
    exchanged[out] = loadings.FewestOf(out, exchanged);
    bundles = exchanged;
    return true;
}

bool ExchangeAny(TriedLoadings& loadings, Bundles& bundles) {
    for (const std::size_t out : loadings.ByPrice()) {
        for (const std::size_t into : loadings.ByPrice()) {
            if (Exchange(loadings, bundles, into, out)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

Bundles Descend(TriedLoadings& loadings, Bundles bundles) {
    bundles = TakeOut(loadings, bundles);
    while (ExchangeAny(loadings, bundles)) {
        bundles = TakeOut(loadings, bundles);
    }
    return bundles;
}

}  // namespace qxmix
