#include "WorkerMessages.h"

#include "Bytes.h"

namespace qxmix {

Message ToMessage(MessageKind kind) {
    return ToMessage(kind, "");
}

Message ToMessage(MessageKind kind, const std::string& text) {
    return {static_cast<std::uint8_t>(kind), text};
}

Message ToMessage(const OpenOrder& order) {
    ByteWriter writer;
    writer.PutText(order.library).PutText(order.registry);
    return ToMessage(MessageKind::Open, writer.Bytes());
}

Message ToMessage(const Opening& opening) {
    ByteWriter writer;
    writer.Put(opening);
    return ToMessage(MessageKind::Opened, writer.Bytes());
}

Message ToMessage(const CalculateOrder& order) {
    ByteWriter writer;
    writer.Put(order);
    return ToMessage(MessageKind::Calculate, writer.Bytes());
}

Message ToMessage(const Calculation& calculation) {
    ByteWriter writer;
    writer.Put(calculation.returned).Put(calculation.request).Put(calculation.result);
    writer.PutText(calculation.written).Put(calculation.took).Put(calculation.isEndless);
    return ToMessage(MessageKind::Calculated, writer.Bytes());
}

Message ToMessage(const Catalogue& catalogue) {
    ByteWriter writer;
    writer.Put(catalogue.returned).Put(catalogue.recordCount);
    writer.Put(static_cast<std::uint32_t>(catalogue.entries.size()));
    for (const CatalogueEntry& entry : catalogue.entries) {
        writer.Put(entry.mixNumber).Put(entry.mixType).Put(entry.subType).PutText(entry.name);
    }
    return ToMessage(MessageKind::Catalogue, writer.Bytes());
}

MessageKind KindOf(const Message& message) {
    return static_cast<MessageKind>(message.kind);
}

OpenOrder ReadOpenOrder(const Message& message) {
    ByteReader reader(message.bytes);
    OpenOrder order;
    order.library = reader.TakeText();
    order.registry = reader.TakeText();
    return order;
}

Opening ReadOpening(const Message& message) {
    return ByteReader(message.bytes).Take<Opening>();
}

CalculateOrder ReadCalculateOrder(const Message& message) {
    return ByteReader(message.bytes).Take<CalculateOrder>();
}

Calculation ReadCalculation(const Message& message) {
    ByteReader reader(message.bytes);
    Calculation calculation;
    calculation.returned = reader.Take<std::int32_t>();
    calculation.request = reader.Take<MixRequest>();
    calculation.result = reader.Take<MixResult>();
    calculation.written = reader.TakeText();
    calculation.took = reader.Take<std::chrono::nanoseconds>();
    calculation.isEndless = reader.Take<bool>();
    return calculation;
}

Catalogue ReadCatalogue(const Message& message) {
    ByteReader reader(message.bytes);
    Catalogue catalogue;
    catalogue.returned = reader.Take<std::int32_t>();
    catalogue.recordCount = reader.Take<std::uint32_t>();
    for (auto left = reader.Take<std::uint32_t>(); left > 0; --left) {
        CatalogueEntry entry;
        entry.mixNumber = reader.Take<std::uint16_t>();
        entry.mixType = reader.Take<std::uint16_t>();
        entry.subType = reader.Take<std::uint16_t>();
        entry.name = reader.TakeText();
        catalogue.entries.push_back(entry);
    }
    return catalogue;
}

}  // namespace qxmix
