#include "ElfBuilder.h"

#include "ImageError.h"
#include "OutputFile.h"
#include "PeFormat.h"
#include "RunWords.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace image {
namespace {

Image ImageOf(const ElfBuilder& builder) {
    return LayImage(ReadElf(builder.File()));
}

/// What the writer says of a program; empty when it takes it.
std::string Complaint(const std::function<void(ElfBuilder&)>& damage) {
    ElfBuilder builder;
    damage(builder);
    try {
        EncodeImage(ImageOf(builder));
    } catch (const ImageError& error) {
        return error.what();
    }
    return "";
}

TEST(ImageWriter, TakesAWellFormedProgram) {
    EXPECT_EQ("", Complaint([](ElfBuilder&) {}));
}

TEST(ImageWriter, AddressInCodeBecomesAFixup) {
    const Image laid = ImageOf(ElfBuilder());
    EXPECT_EQ(ElfBuilder::kBase, laid.base);
    EXPECT_EQ(0x1000U, laid.entry);
    EXPECT_EQ(std::vector<std::uint32_t>{0x1004}, laid.fixups);
}

TEST(ImageWriter, AddressInADirectoryBecomesAnOffset) {
    ElfBuilder builder;
    builder.Relocate(ElfBuilder::kImports, R_ARM_ABS32, ElfBuilder::kMovingSymbol);
    const Image laid = ImageOf(builder);
    EXPECT_EQ(std::vector<std::uint32_t>{0x1004}, laid.fixups);
    EXPECT_EQ(0x2000U, ReadU32(laid.sections.at(1).content, 0));
}

TEST(ImageWriter, DistancesAndMarksStayAsTheyAre) {
    for (const unsigned type : std::initializer_list<unsigned>{
             R_ARM_NONE, R_ARM_PC24, R_ARM_CALL, R_ARM_JUMP24, R_ARM_REL32, R_ARM_V4BX}) {
        ElfBuilder builder;
        builder.Relocate(ElfBuilder::kCode, type, ElfBuilder::kMovingSymbol);
        EXPECT_EQ(std::vector<std::uint32_t>{0x1004}, ImageOf(builder).fixups);
    }
}

TEST(ImageWriter, RefusesEveryOtherRelocationWithItsPlace) {
    for (unsigned type = 0; type < 256; ++type) {
        const std::string complaint = Complaint([type](ElfBuilder& builder) {
            builder.Relocate(ElfBuilder::kCode, type, ElfBuilder::kMovingSymbol);
        });
        const bool isKnown = type == R_ARM_NONE || type == R_ARM_PC24 || type == R_ARM_ABS32 ||
                             type == R_ARM_REL32 || type == R_ARM_CALL || type == R_ARM_JUMP24 ||
                             type == R_ARM_TARGET1 || type == R_ARM_V4BX;
        if (!isKnown) {
            EXPECT_EQ("unknown relocation type " + std::to_string(type) + " at 0x10001000",
                      complaint);
        }
    }
}

TEST(ImageWriter, RefusesRelocationsToNothingAndToFixedAddresses) {
    for (const unsigned type : std::initializer_list<unsigned>{R_ARM_ABS32, R_ARM_CALL}) {
        EXPECT_EQ("relocation to nothing at 0x10001000", Complaint([type](ElfBuilder& builder) {
                      builder.Relocate(ElfBuilder::kCode, type, ElfBuilder::kUndefinedSymbol);
                  }));
        EXPECT_EQ("relocation to a fixed address at 0x10001000",
                  Complaint([type](ElfBuilder& builder) {
                      builder.Relocate(ElfBuilder::kCode, type, ElfBuilder::kAbsoluteSymbol);
                  }));
    }
}

TEST(ImageWriter, RefusesWordsThatPointOutsideTheImage) {
    EXPECT_EQ("the word at 0x10001004 points outside the image", Complaint([](ElfBuilder& builder) {
                  builder.At(".text").content = WordsOf({0, 0x10003000});
              }));
    EXPECT_EQ("the word at 0x10001004 points outside the image", Complaint([](ElfBuilder& builder) {
                  builder.At(".text").content = WordsOf({0, 0x0FFFFFFF});
              }));
}

TEST(ImageWriter, RefusesPlacesThatAreNone) {
    EXPECT_EQ("address in the unaligned word at 0x10001002", Complaint([](ElfBuilder& builder) {
                  builder.Relocate(ElfBuilder::kCode + 2, R_ARM_ABS32, ElfBuilder::kMovingSymbol);
              }));
    for (const std::uint32_t place : {0x10000FFCU, 0x10001008U, 0x10002004U}) {
        EXPECT_EQ("address " + Hex(place) + " lies in no section with content",
                  Complaint([place](ElfBuilder& builder) {
                      builder.Relocate(place, R_ARM_ABS32, ElfBuilder::kMovingSymbol);
                  }));
    }
}

TEST(ImageWriter, RefusesSectionsThatItDoesNotKnow) {
    EXPECT_EQ("unknown section .init_array",
              Complaint([](ElfBuilder& builder) { builder.At(".idata").name = ".init_array"; }));
}

TEST(ImageWriter, RefusesSectionsThatCannotStandWhereTheyAre) {
    EXPECT_EQ("section .idata cannot start at 0x10002004",
              Complaint([](ElfBuilder& builder) { builder.At(".idata").address += 4; }));
    EXPECT_EQ("section .idata cannot start at 0x10001000", Complaint([](ElfBuilder& builder) {
                  builder.At(".idata").address = ElfBuilder::kCode;
              }));
    EXPECT_EQ("section .text cannot start at 0x10000000", Complaint([](ElfBuilder& builder) {
                  builder.At(".text").address = ElfBuilder::kBase;
              }));
    EXPECT_EQ("section .idata is too large", Complaint([](ElfBuilder& builder) {
                  builder.At(".idata").content.clear();
                  builder.At(".idata").type = SHT_NOBITS;
                  builder.At(".idata").size = 0x7FFFFFFF;
              }));
}

TEST(ImageWriter, RefusesAnEntryThatIsNoCode) {
    EXPECT_EQ("the entry point 0x10002000 is no code", Complaint([](ElfBuilder& builder) {
                  builder.header.e_entry = ElfBuilder::kImports;
              }));
    EXPECT_EQ("address 0x00000000 lies in no section with content",
              Complaint([](ElfBuilder& builder) { builder.header.e_entry = 0; }));
}

TEST(ImageWriter, RefusesAProgramLinkedWithoutItsRelocations) {
    EXPECT_EQ("nothing to relocate: link with --emit-relocs",
              Complaint([](ElfBuilder& builder) { builder.At(".rel.text").content.clear(); }));
    EXPECT_EQ("no symbol IMAGE_BASE",
              Complaint([](ElfBuilder& builder) { builder.At(".strtab").content[1] = 'X'; }));
}

TEST(ImageWriter, RefusesFilesOfOtherKinds) {
    EXPECT_EQ("not an ELF file",
              Complaint([](ElfBuilder& builder) { builder.header.e_ident[0] = 0; }));
    EXPECT_EQ("not a 32-bit little-endian ARM file",
              Complaint([](ElfBuilder& builder) { builder.header.e_machine = EM_386; }));
    EXPECT_EQ("not a 32-bit little-endian ARM file", Complaint([](ElfBuilder& builder) {
                  builder.header.e_ident[EI_DATA] = ELFDATA2MSB;
              }));
    EXPECT_EQ("not linked to a fixed address",
              Complaint([](ElfBuilder& builder) { builder.header.e_type = ET_DYN; }));
    EXPECT_EQ("relocations with addends, which no linker writes for this processor",
              Complaint([](ElfBuilder& builder) { builder.At(".rel.text").type = SHT_RELA; }));
}

TEST(ImageWriter, RefusesAFileThatEndsAnywhere) {
    const Bytes whole = ElfBuilder().File();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_THROW(LayImage(ReadElf(part)), ImageError) << size << " bytes";
    }
}

TEST(ImageWriter, EndsWellOnEveryDamagedByte) {
    const Bytes whole = ElfBuilder().File();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const unsigned damage : {0x01U, 0x80U, 0xFFU}) {
            Bytes damaged = whole;
            damaged[at] = static_cast<std::uint8_t>(damaged[at] ^ damage);
            try {
                EncodeImage(LayImage(ReadElf(damaged)));
            } catch (const ImageError& error) {
                EXPECT_NE(std::string(), error.what());
            }
        }
    }
}

TEST(FixupBlocks, AreOnePerPageOfAnEvenNumberOfEntries) {
    const Bytes blocks = EncodeFixups({0x1004, 0x1FFC, 0x3000});
    const Bytes expected{0x00, 0x10, 0, 0, 12, 0, 0, 0, 0x04, 0x30, 0xFC, 0x3F,
                         0x00, 0x30, 0, 0, 12, 0, 0, 0, 0x00, 0x30, 0x00, 0x00};
    EXPECT_EQ(expected, blocks);
    EXPECT_TRUE(EncodeFixups({}).empty());
}

class OutputFolder : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "imageXXXXXX";
        ASSERT_NE(nullptr, mkdtemp(pattern.data()));
        folder_ = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string In(const std::string& name) const { return folder_ + "/" + name; }
    std::size_t Files() const {
        std::size_t files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            files += entry.exists() ? 1 : 0;
        }
        return files;
    }

    /// Runs the writer as a build does; returns its exit status.
    int Run(const std::string& input, const std::string& output) const {
        return WEXITSTATUS(RunWords({MAKE_IMAGE, input, output}, In("said")));
    }

    std::string Said() const {
        const Bytes text = ReadFile(In("said"));
        return std::string(text.begin(), text.end());
    }

private:
    std::string folder_;
};

TEST_F(OutputFolder, GetsTheLibraryAndNothingElse) {
    const Bytes program = ElfBuilder().File();
    WriteFile(In("a.elf"), program);
    EXPECT_EQ(0, Run(In("a.elf"), In("a.dll")));
    EXPECT_EQ("", Said());
    EXPECT_EQ(EncodeImage(LayImage(ReadElf(program))), ReadFile(In("a.dll")));
    EXPECT_EQ(3U, Files());
}

TEST_F(OutputFolder, KeepsTheOldLibraryWhenTheProgramIsRefused) {
    ElfBuilder builder;
    builder.Relocate(ElfBuilder::kCode, R_ARM_ABS16, ElfBuilder::kMovingSymbol);
    WriteFile(In("a.elf"), builder.File());
    WriteFile(In("a.dll"), {1, 2, 3});
    EXPECT_EQ(1, Run(In("a.elf"), In("a.dll")));
    EXPECT_EQ("make-image: " + In("a.elf") + ": unknown relocation type 5 at 0x10001000\n", Said());
    EXPECT_EQ((Bytes{1, 2, 3}), ReadFile(In("a.dll")));
    EXPECT_EQ(3U, Files());
}

TEST_F(OutputFolder, IsLeftAloneWhenItCannotBeWritten) {
    WriteFile(In("a.elf"), ElfBuilder().File());
    EXPECT_EQ(1, Run(In("a.elf"), In("none/a.dll")));
    EXPECT_EQ("make-image: " + In("none/a.dll") + ": cannot be written\n", Said());
    EXPECT_EQ(1, Run(In("none.elf"), In("a.dll")));
    EXPECT_EQ("make-image: " + In("none.elf") + ": cannot be read\n", Said());
    EXPECT_EQ(2U, Files());
}

}  // namespace
}  // namespace image
