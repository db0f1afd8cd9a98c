#include "IntegerPrograms.h"

#include <glpk.h>

namespace bench {

FewestItems FewestItemsByGlpk(const Question& question) {
    const int units = static_cast<int>(question.units.size());
    glp_term_out(GLP_OFF);
    glp_prob* const problem = glp_create_prob();
    glp_set_obj_dir(problem, GLP_MIN);
    glp_add_rows(problem, 1);
    glp_set_row_bnds(problem, 1, GLP_FX, question.amount, question.amount);
    glp_add_cols(problem, units);
    std::vector<int> columns(1, 0);  // entries count from 1
    std::vector<double> values(1, 0);
    for (int column = 1; column <= units; ++column) {
        const Unit& unit = question.units[static_cast<unsigned>(column) - 1];
        glp_set_col_kind(problem, column, GLP_IV);
        glp_set_col_bnds(problem, column, GLP_DB, 0, unit.count);
        glp_set_obj_coef(problem, column, 1);
        columns.push_back(column);
        values.push_back(unit.value);
    }
    glp_set_mat_row(problem, 1, units, columns.data(), values.data());
    glp_iocp parameters;
    glp_init_iocp(&parameters);
    parameters.presolve = GLP_ON;
    parameters.tm_lim = kSolverMilliseconds;
    const int ended = glp_intopt(problem, &parameters);
    FewestItems fewest{FewestItems::Kind::None};
    if (ended == GLP_ETMLIM) {
        fewest.kind = FewestItems::Kind::GaveUp;
    } else if (ended == 0 && glp_mip_status(problem) == GLP_OPT) {
        fewest = {FewestItems::Kind::Found,
                  static_cast<std::uint32_t>(glp_mip_obj_val(problem) + 0.5)};
    }
    glp_delete_prob(problem);
    return fewest;
}

}  // namespace bench
