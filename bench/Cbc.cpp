#include "IntegerPrograms.h"

#include <Cbc_C_Interface.h>

namespace bench {

FewestItems FewestItemsByCbc(const Question& question) {
    const int units = static_cast<int>(question.units.size());
    std::vector<CoinBigIndex> starts;
    std::vector<int> rows(question.units.size(), 0);
    std::vector<double> values;
    std::vector<double> least(question.units.size(), 0);
    std::vector<double> most;
    std::vector<double> costs(question.units.size(), 1);
    for (const Unit& unit : question.units) {
        starts.push_back(static_cast<CoinBigIndex>(values.size()));
        values.push_back(unit.value);
        most.push_back(unit.count);
    }
    starts.push_back(units);
    const double amount = question.amount;
    Cbc_Model* const model = Cbc_newModel();
    Cbc_setParameter(model, "log", "0");
    Cbc_setMaximumSeconds(model, kSolverMilliseconds / 1000.0);
    Cbc_loadProblem(model, units, 1, starts.data(), rows.data(), values.data(), least.data(),
                    most.data(), costs.data(), &amount, &amount);
    for (int column = 0; column < units; ++column) {
        Cbc_setInteger(model, column);
    }
    Cbc_solve(model);
    FewestItems fewest{FewestItems::Kind::None};
    if (Cbc_isProvenOptimal(model) != 0) {
        fewest = {FewestItems::Kind::Found,
                  static_cast<std::uint32_t>(Cbc_getObjValue(model) + 0.5)};
    } else if (Cbc_isProvenInfeasible(model) == 0) {
        fewest.kind = FewestItems::Kind::GaveUp;
    }
    Cbc_deleteModel(model);
    return fewest;
}

}  // namespace bench
