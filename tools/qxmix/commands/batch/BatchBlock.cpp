#include "BatchBlock.h"

#include "workers/Bytes.h"

namespace qxmix {

namespace {

enum class Kind : std::uint8_t { Lines, Answers };

Message MessageOf(Kind kind, const ByteWriter& writer) {
    return {static_cast<std::uint8_t>(kind), writer.Bytes()};
}

}  // namespace

void LineBlock::DropFirst(std::uint64_t count) {
    lines.erase(0, SizeOf(count));
    firstLine += count;
}

void LineBlock::KeepFirst(std::uint64_t count) {
    lines.resize(SizeOf(count));
}

/// Bytes of the first lines.
std::size_t LineBlock::SizeOf(std::uint64_t count) const {
    std::size_t size = 0;
    for (; count > 0 && size < lines.size(); --count) {
        size = lines.find('\n', size) + 1;
    }
    return size;
}

Message ToMessage(const LineBlock& block) {
    ByteWriter writer;
    writer.Put(block.firstLine).PutText(block.lines);
    writer.Put(static_cast<std::uint32_t>(block.known.size()));
    for (const LineBlock::Known& known : block.known) {
        writer.Put(known.line).Put(known.ending.kind).PutText(known.ending.crash);
    }
    return MessageOf(Kind::Lines, writer);
}

Message ToMessage(const BlockAnswers& answers) {
    ByteWriter writer;
    writer.Put(answers.isLast);
    writer.PutText(answers.lines).Put(answers.lineCount).Put(answers.badLines);
    writer.PutText(answers.lastCode).Put(answers.isWorn);
    return MessageOf(Kind::Answers, writer);
}

LineBlock ReadLineBlock(const Message& message) {
    ByteReader reader(message.bytes);
    LineBlock block;
    block.firstLine = reader.Take<std::uint64_t>();
    block.lines = reader.TakeText();
    for (auto left = reader.Take<std::uint32_t>(); left > 0; --left) {
        LineBlock::Known known;
        known.line = reader.Take<std::uint64_t>();
        known.ending.kind = reader.Take<Ending::Kind>();
        known.ending.crash = reader.TakeText();
        block.known.push_back(known);
    }
    return block;
}

BlockAnswers ReadBlockAnswers(const Message& message) {
    ByteReader reader(message.bytes);
    BlockAnswers answers;
    answers.isLast = reader.Take<bool>();
    answers.lines = reader.TakeText();
    answers.lineCount = reader.Take<std::uint64_t>();
    answers.badLines = reader.Take<std::uint64_t>();
    answers.lastCode = reader.TakeText();
    answers.isWorn = reader.Take<bool>();
    return answers;
}

}  // namespace qxmix
