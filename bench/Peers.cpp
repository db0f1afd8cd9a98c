#include "Contestants.h"
#include "DynamicProgram.h"
#include "IntegerPrograms.h"

namespace bench {

std::vector<Peer> Peers() {
    std::vector<Peer> peers = {{"table", FewestItemsByTable}, {"GLPK", {}}, {"CBC", {}}};
#ifdef QXMIX_BENCH_GLPK
    peers[1].ask = FewestItemsByGlpk;
#endif
#ifdef QXMIX_BENCH_CBC
    peers[2].ask = FewestItemsByCbc;
#endif
    return peers;
}

}  // namespace bench
