#include "RunStretch.h"

#include "module/RegistryImage.h"
#include "workers/Bytes.h"
#include "workers/ModuleCall.h"

#include <memory>

namespace qxmix {

namespace {

RunOrder ReadRunOrder(const std::string& bytes, const Dispenser& dispenser) {
    ByteReader reader(bytes);
    RunOrder order;
    order.run = reader.Take<std::uint32_t>();
    order.mix = reader.Take<std::uint16_t>();
    order.first = reader.Take<std::uint64_t>();
    order.most = reader.Take<std::uint64_t>();
    order.longest = reader.Take<std::chrono::microseconds>();
    order.cassettes = dispenser.cassettes;
    for (Cassette& cassette : order.cassettes) {
        cassette.count = reader.Take<std::uint32_t>();
        cassette.status = reader.Take<std::uint16_t>();
        cassette.value = reader.Take<std::uint32_t>();
    }
    return order;
}

std::string ToBytes(const RunAnswer& answer) {
    ByteWriter writer;
    writer.PutText(answer.code).Put(static_cast<std::uint64_t>(answer.steps.size()));
    for (const SimulationStep& step : answer.steps) {
        writer.Put(step.outcome).Put(step.isProved).Put(step.items);
    }
    return writer.Bytes();
}

RunAnswer Run(const ModuleLibrary& library,
              const RunOrder& order,
              Dispenser dispenser,
              const RunDemands& all) {
    dispenser.cassettes = order.cassettes;
    Simulation simulation(dispenser, all[order.run], order.mix,
                          static_cast<std::size_t>(order.first));
    TakeErrorCode();
    const Clock::time_point end = Clock::now() + order.longest;
    do {
        simulation.Take(ReplyWith(CallModuleQuickly(library, simulation.NextRequest())));
    } while (!simulation.IsOver() && simulation.Steps().size() < order.most && Clock::now() < end);
    return {simulation.Steps(), ErrorCodeBytes()};
}

}  // namespace

std::string ToJob(const RunOrder& order) {
    ByteWriter writer;
    writer.Put(order.run).Put(order.mix).Put(order.first).Put(order.most).Put(order.longest);
    for (const Cassette& cassette : order.cassettes) {
        writer.Put(cassette.count).Put(cassette.status).Put(cassette.value);
    }
    return writer.Bytes();
}

RunAnswer ReadRunAnswer(const std::string& bytes) {
    ByteReader reader(bytes);
    RunAnswer answer;
    answer.code = reader.TakeText();
    for (auto left = reader.Take<std::uint64_t>(); left > 0; --left) {
        SimulationStep step;
        step.outcome = reader.Take<Outcome>();
        step.isProved = reader.Take<bool>();
        step.items = reader.Take<CassetteItems>();
        answer.steps.push_back(step);
    }
    return answer;
}

Job RunJob(const std::string& library, const Dispenser& dispenser, const RunDemands& demands) {
    // Each worker is a copy of this process, and opens a library of its own with its first job.
    const auto opened = std::make_shared<std::unique_ptr<ModuleLibrary>>();
    return [library, dispenser, demands, opened](const std::string& bytes, AtWork& work) {
        work.Begin(1);
        if (*opened == nullptr) {
            *opened = std::make_unique<ModuleLibrary>(library);
        }
        return ToBytes(Run(**opened, ReadRunOrder(bytes, dispenser), dispenser, demands));
    };
}

}  // namespace qxmix
