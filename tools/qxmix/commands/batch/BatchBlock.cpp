#include "BatchBlock.h"

#include "workers/Bytes.h"

namespace qxmix {

void LineBlock::DropFirst(std::uint64_t count) {
    lines.erase(0, SizeOf(count));
    firstLine += count;
}

void LineBlock::DropFrom(std::uint64_t line) {
    lines.resize(line > firstLine ? SizeOf(line - firstLine) : 0);
}

/// Bytes of the first lines.
std::size_t LineBlock::SizeOf(std::uint64_t count) const {
    std::size_t size = 0;
    for (; count > 0 && size < lines.size(); --count) {
        size = lines.find('\n', size) + 1;
    }
    return size;
}

std::string BytesOf(const LineBlock& block) {
    ByteWriter writer;
    writer.Put(block.firstLine).PutText(block.lines);
    writer.Put(static_cast<std::uint32_t>(block.known.size()));
    for (const LineBlock::Known& known : block.known) {
        writer.Put(known.line).Put(known.ending.kind).PutText(known.ending.crash);
    }
    return writer.Bytes();
}

std::string BytesOf(const BlockAnswers& answers) {
    ByteWriter writer;
    writer.PutText(answers.lines).Put(answers.lineCount).Put(answers.badLines);
    writer.PutText(answers.lastCode);
    return writer.Bytes();
}

LineBlock ReadLineBlock(const std::string& bytes) {
    ByteReader reader(bytes);
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

BlockAnswers ReadBlockAnswers(const std::string& bytes) {
    ByteReader reader(bytes);
    BlockAnswers answers;
    answers.lines = reader.TakeText();
    answers.lineCount = reader.Take<std::uint64_t>();
    answers.badLines = reader.Take<std::uint64_t>();
    answers.lastCode = reader.TakeText();
    return answers;
}

}  // namespace qxmix
