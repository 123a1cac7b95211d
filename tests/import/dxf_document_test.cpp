// Sections, blocks and entities out of DXF content in all its forms.
#include "import/dxf_document.h"

#include <algorithm>
#include <numbers>

#include "gtest/gtest.h"
#include "rapidcheck/gtest.h"

#include "tests/import/dxf_content.h"
#include "tests/support/failure_of.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::BinaryForm;
using testing::entitySection;
using testing::failureOf;
using testing::inBinaryForm;
using testing::inTextForm;

DxfDocument documentOf(const std::string& content) {
  DxfDocument document;
  readDxf(document, content, "part.dxf");
  return document;
}

DxfDocument entitiesOf(const std::string& entities) {
  return documentOf(inTextForm(entitySection(entities)));
}

std::vector<std::string> typesOf(const std::vector<DxfEntity>& entities) {
  std::vector<std::string> types;
  for (const DxfEntity& entity : entities) types.emplace_back(entity.EntityType);
  return types;
}

using Types = std::vector<std::string>;

constexpr char kWholeFile[] =
    "0 SECTION, 2 HEADER, 9 $ACADVER, 1 AC1015, 9 $INSUNITS, 70 4, 9 $EXTMIN, 10 0, 20 0, 0 "
    "ENDSEC, "
    "0 SECTION, 2 TABLES, 0 TABLE, 2 LAYER, 0 ENDTAB, 0 ENDSEC, "
    "0 SECTION, 2 BLOCKS, 0 BLOCK, 8 0, 2 Bolt, 70 0, 10 1, 20 2, 30 3, 3 Bolt, "
    "0 CIRCLE, 10 0, 20 0, 40 2, 0 LINE, 10 0, 20 0, 11 1, 21 1, 0 ENDBLK, 5 2F, 8 0, "
    "0 BLOCK, 2 Empty, 0 ENDBLK, 0 ENDSEC, "
    "0 SECTION, 2 ENTITIES, 0 LINE, 8 Outline, 10 0, 20 1, 30 2, 11 3, 21 4, 31 5, "
    "0 ARC, 8 Outline, 10 1, 20 2, 40 3, 50 45, 51 90, 210 0, 220 0, 230 -1, "
    "0 INSERT, 2 BOLT, 10 7, 20 8, 41 2, 42 -1, 43 3, 50 30, 70 4, 71 5, 44 10, 45 20, "
    "0 ENDSEC, 0 SECTION, 2 OBJECTS, 0 DICTIONARY, 5 C, 0 ENDSEC, 0 EOF";

TEST(DxfDocument, HeaderAndEntitiesStandAsTheFileHasThem) {
  const DxfDocument document = documentOf(inTextForm(kWholeFile));
  EXPECT_EQ(document.version, "AC1015");
  EXPECT_EQ(document.insunits, 4);
  EXPECT_FALSE(document.isBinary);
  ASSERT_EQ(typesOf(document.Entities), (Types{"LINE", "ARC", "INSERT"}));
  const DxfEntity& line = document.Entities[0];
  EXPECT_EQ(line.layer, "Outline");
  EXPECT_EQ((std::vector{line.x0, line.y0, line.z0, line.x1, line.y1, line.z1}),
            (std::vector<double>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(line.extrusion.z, 1);
  const DxfEntity& arc = document.Entities[1];
  EXPECT_EQ((std::vector{arc.x0, arc.y0, arc.g40, arc.g50, arc.g51, arc.extrusion.z}),
            (std::vector<double>{1, 2, 3, 45, 90, -1}));
}

TEST(DxfDocument, AnInsertHasItsBlockScalesAndArray) {
  const DxfDocument document = documentOf(inTextForm(kWholeFile));
  const DxfEntity& entity = document.Entities[2];
  ASSERT_NE(entity.insert, nullptr);
  const DxfInsert& insert = *entity.insert;
  EXPECT_EQ(insert.block, "BOLT");
  EXPECT_EQ((std::vector{entity.x0, entity.y0, entity.g50, insert.xScale, insert.yScale,
                         insert.zScale, insert.columnSpacing, insert.rowSpacing}),
            (std::vector<double>{7, 8, 30, 2, -1, 3, 10, 20}));
  EXPECT_EQ(insert.columns, 4);
  EXPECT_EQ(insert.rows, 5);
}

TEST(DxfDocument, BlocksAreFoundByTheirNameAndAreNoEntities) {
  const DxfDocument document = documentOf(inTextForm(kWholeFile));
  const DxfBlock* const block = document.block("bOLT");
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(block->name, "Bolt");
  EXPECT_EQ((std::vector{block->base.x, block->base.y, block->base.z}),
            (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(typesOf(block->entities), (Types{"CIRCLE", "LINE"}));
  ASSERT_NE(document.block("EMPTY"), nullptr);
  EXPECT_TRUE(document.block("EMPTY")->entities.empty());
  EXPECT_EQ(document.block("none"), nullptr);
}

TEST(DxfDocument, OfBlocksOfOneNameTheFirstCounts) {
  const DxfDocument document = documentOf(inTextForm(
      "0 SECTION, 2 BLOCKS, 0 BLOCK, 2 A, 0 LINE, 0 ENDBLK, 0 BLOCK, 2 a, 0 ARC, 0 ENDBLK, "
      "0 ENDSEC, 0 EOF"));
  ASSERT_NE(document.block("A"), nullptr);
  EXPECT_EQ(typesOf(document.block("A")->entities), Types{"LINE"});
}

std::string summaryOf(const DxfEntity& entity) {
  std::string text(entity.EntityType);
  for (const double number : {entity.x0, entity.y0, entity.x1, entity.y1, entity.g40, entity.g50,
                              entity.g51, static_cast<double>(entity.g70)}) {
    text += " " + std::to_string(number);
  }
  for (const DxfVertex& vertex : entity.Vertexes) {
    text += " (" + std::to_string(vertex.x0) + " " + std::to_string(vertex.y0) + " " +
            std::to_string(vertex.bulge) + ")";
  }
  return text + " " + std::string(entity.layer);
}

std::vector<std::string> summaryOf(const DxfDocument& document) {
  std::vector<std::string> texts{document.version, std::to_string(document.insunits)};
  for (const DxfEntity& entity : document.Entities) texts.push_back(summaryOf(entity));
  for (const auto& [name, block] : document.blocks) {
    texts.push_back(name);
    for (const DxfEntity& entity : block.entities) texts.push_back(summaryOf(entity));
  }
  return texts;
}

TEST(DxfDocument, TextAndBothBinaryFormsHoldTheSame) {
  const auto expected = summaryOf(documentOf(inTextForm(kWholeFile)));
  EXPECT_EQ(summaryOf(documentOf(inTextForm(kWholeFile, "\r\n"))), expected);
  for (const BinaryForm form : {BinaryForm::ShortCodes, BinaryForm::LongCodes}) {
    const DxfDocument document = documentOf(inBinaryForm(kWholeFile, form));
    EXPECT_TRUE(document.isBinary);
    EXPECT_EQ(summaryOf(document), expected);
  }
}

RC_GTEST_PROP(DxfDocument, GroupsOfAnEntityComeInAnyOrder, ()) {
  std::vector<std::string> groups{"8 A",  "10 1", "20 2", "11 3", "21 4",
                                  "40 5", "50 6", "51 7", "70 1", "62 3"};
  const auto order =
      *rc::gen::container<std::vector<int>>(groups.size(), rc::gen::arbitrary<int>());
  std::vector<std::pair<int, std::string>> shuffled;
  for (std::size_t at = 0; at < groups.size(); ++at) shuffled.emplace_back(order[at], groups[at]);
  std::sort(shuffled.begin(), shuffled.end());
  std::string entity = "0 ARC";
  for (const auto& [place, group] : shuffled) entity += ", " + group;
  const DxfDocument document = entitiesOf(entity);
  RC_ASSERT(document.Entities.size() == 1U);
  RC_ASSERT(
      summaryOf(document.Entities[0]) ==
      summaryOf(
          entitiesOf("0 ARC, 8 A, 10 1, 20 2, 11 3, 21 4, 40 5, 50 6, 51 7, 70 1").Entities[0]));
}

TEST(DxfDocument, VerticesOfAnLwpolylineHaveTheirBulges) {
  for (const char* const vertices :
       {"10 0, 20 0, 42 0.5, 10 1, 20 2, 40 9, 41 9, 10 3, 20 4, 42 -1",
        "20 0, 10 0, 42 0.5, 20 2, 10 1, 40 9, 41 9, 20 4, 10 3, 42 -1"}) {
    const DxfDocument document =
        entitiesOf(std::string("0 LWPOLYLINE, 90 3, 70 1, 38 5, 42 7, ") + vertices);
    ASSERT_EQ(document.Entities.size(), 1U);
    EXPECT_EQ(summaryOf(document.Entities[0]),
              "LWPOLYLINE 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 1.000000"
              " (0.000000 0.000000 0.500000) (1.000000 2.000000 0.000000)"
              " (3.000000 4.000000 -1.000000) ");
    EXPECT_EQ(document.Entities[0].z0, 5);
  }
}

TEST(DxfDocument, OldPolylinesTakeTheirVertices) {
  const DxfDocument document = entitiesOf(
      "0 POLYLINE, 8 A, 66 1, 70 1, 10 0, 20 0, 0 VERTEX, 8 B, 10 1, 20 2, 42 0.5, 70 16, "
      "0 VERTEX, 10 3, 20 4, 0 SEQEND, 8 A, 0 LINE, 11 1");
  ASSERT_EQ(typesOf(document.Entities), (Types{"POLYLINE", "LINE"}));
  const DxfEntity& polyline = document.Entities[0];
  ASSERT_EQ(polyline.Vertexes.size(), 2U);
  EXPECT_EQ(polyline.g70, 1);
  EXPECT_EQ(polyline.Vertexes[0].x0, 1);
  EXPECT_EQ(polyline.Vertexes[0].bulge, 0.5);
  EXPECT_EQ(polyline.Vertexes[0].g70, DxfVertex::kControlPoint);
  EXPECT_EQ(polyline.Vertexes[1].y0, 4);
}

TEST(DxfDocument, APolylineEndsWithoutItsSeqendToo) {
  const DxfDocument document =
      entitiesOf("0 POLYLINE, 0 VERTEX, 10 1, 0 VERTEX, 10 2, 0 LINE, 11 1, 0 VERTEX, 10 9");
  ASSERT_EQ(typesOf(document.Entities), (Types{"POLYLINE", "LINE", "VERTEX"}));
  EXPECT_EQ(document.Entities[0].Vertexes.size(), 2U);
}

TEST(DxfDocument, AttributesStandBesideTheirInsertAndSeqendIsNothing) {
  const DxfDocument document =
      entitiesOf("0 INSERT, 66 1, 2 A, 0 ATTRIB, 1 x, 0 SEQEND, 8 0, 0 POINT, 10 1");
  EXPECT_EQ(typesOf(document.Entities), (Types{"INSERT", "ATTRIB", "POINT"}));
}

TEST(DxfDocument, ASplineHasItsPointsKnotsAndWeights) {
  const DxfDocument document = entitiesOf(
      "0 SPLINE, 210 0, 220 0, 230 1, 70 5, 71 3, 72 4, 73 2, 74 1, 42 0.001, 12 1, 22 2, 32 3, "
      "13 4, 23 5, 33 6, 40 0, 40 0.5, 40 1, 41 1, 41 2, 10 1, 20 2, 30 3, 10 4, 20 5, 30 6, "
      "11 7, 21 8, 31 9");
  ASSERT_EQ(document.Entities.size(), 1U);
  EXPECT_EQ(document.Entities[0].g70, DxfSpline::kClosed | DxfSpline::kRational);
  ASSERT_NE(document.Entities[0].spline, nullptr);
  const DxfSpline& spline = *document.Entities[0].spline;
  EXPECT_EQ(spline.degree, 3);
  EXPECT_EQ(spline.knots, (std::vector<double>{0, 0.5, 1}));
  EXPECT_EQ(spline.weights, (std::vector<double>{1, 2}));
  ASSERT_EQ(spline.controlPoints.size(), 2U);
  EXPECT_EQ(spline.controlPoints[1].y, 5);
  EXPECT_EQ(spline.controlPoints[1].z, 6);
  ASSERT_EQ(spline.fitPoints.size(), 1U);
  EXPECT_EQ(spline.fitPoints[0].x, 7);
  EXPECT_EQ(spline.startTangent.y, 2);
  EXPECT_EQ(spline.endTangent.z, 6);
}

// The conversions take the types in any case, so the fields of a kind must be there too.
TEST(DxfDocument, KindsAreKnownInAnyCase) {
  const DxfDocument document = entitiesOf(
      "0 Spline, 71 2, 0 ellipse, 10 1, 0 insErt, 2 A, 0 LwPolyline, 10 1, 20 2, 0 Polyline, "
      "0 VERTEX, 10 3, 20 4, 0 SEQEND");
  ASSERT_EQ(typesOf(document.Entities),
            (Types{"Spline", "ellipse", "insErt", "LwPolyline", "Polyline"}));
  ASSERT_NE(document.Entities[0].spline, nullptr);
  EXPECT_EQ(document.Entities[0].spline->degree, 2);
  EXPECT_NE(document.Entities[1].ellipse, nullptr);
  EXPECT_NE(document.Entities[2].insert, nullptr);
  EXPECT_EQ(document.Entities[3].Vertexes.size(), 1U);
  EXPECT_EQ(document.Entities[4].Vertexes.size(), 1U);
}

TEST(DxfDocument, AnEllipseIsWholeUnlessItSaysOtherwise) {
  const DxfDocument document = entitiesOf(
      "0 ELLIPSE, 10 1, 20 2, 11 3, 21 4, 40 0.5, 0 ELLIPSE, 10 1, 11 3, 40 1, 41 0.25, 42 1.5");
  ASSERT_EQ(document.Entities.size(), 2U);
  const DxfEntity& whole = document.Entities[0];
  EXPECT_EQ((std::vector{whole.x0, whole.y0, whole.x1, whole.y1, whole.g40}),
            (std::vector<double>{1, 2, 3, 4, 0.5}));
  EXPECT_EQ(whole.ellipse->startParameter, 0);
  EXPECT_EQ(whole.ellipse->endParameter, 2 * std::numbers::pi);
  EXPECT_EQ(document.Entities[1].ellipse->startParameter, 0.25);
  EXPECT_EQ(document.Entities[1].ellipse->endParameter, 1.5);
}

TEST(DxfDocument, PaperSpaceAndExtrusionAreTold) {
  const DxfDocument document =
      entitiesOf("0 CIRCLE, 67 1, 40 1, 210 0.5, 220 0.25, 230 -1, 0 CIRCLE, 67 0, 40 1");
  EXPECT_TRUE(document.Entities[0].paperSpace);
  EXPECT_EQ(document.Entities[0].extrusion.x, 0.5);
  EXPECT_EQ(document.Entities[0].extrusion.y, 0.25);
  EXPECT_EQ(document.Entities[0].extrusion.z, -1);
  EXPECT_FALSE(document.Entities[1].paperSpace);
}

TEST(DxfDocument, LayersAreReadInTheFilesCodePage) {
  const std::string entities =
      ", 0 SECTION, 2 ENTITIES, 0 LINE, 8 Fl\xFCgel, 0 LINE, 8 \xC4\xE5, 0 ENDSEC, 0 EOF";
  const auto layers = [&](const std::string& header) {
    const DxfDocument document = documentOf(
        inTextForm("0 SECTION, 2 HEADER, 9 $ACADVER, " + header + ", 0 ENDSEC" + entities));
    return std::string(document.Entities[0].layer) + " " + std::string(document.Entities[1].layer);
  };
  EXPECT_EQ(layers("1 AC1009, 9 $DWGCODEPAGE, 3 ANSI_1252"), "Flügel Äå");
  EXPECT_EQ(layers("1 AC1018, 9 $DWGCODEPAGE, 3 ANSI_1251"), "Flьgel Де");
  EXPECT_EQ(layers("1 AC1021, 9 $DWGCODEPAGE, 3 ANSI_1251"), "Flügel Äå");
}

TEST(DxfDocument, ABlockNameIsFoundInAnyCodePage) {
  const DxfDocument document = documentOf(
      inTextForm("0 SECTION, 2 BLOCKS, 0 BLOCK, 2 Fl\xFCgel, 0 LINE, 0 ENDBLK, 0 ENDSEC, "
                 "0 SECTION, 2 ENTITIES, 0 INSERT, 2 FL\xDCGEL, 0 ENDSEC, 0 EOF"));
  EXPECT_NE(document.block(document.Entities[0].insert->block), nullptr);
}

TEST(DxfDocument, EveryEntityKnowsItsPlace) {
  const DxfDocument text = entitiesOf("0 LINE, 11 1, 0 ARC, 40 1");
  EXPECT_EQ(dxfPlace(text, text.Entities[0].place), "line 5");
  EXPECT_EQ(dxfPlace(text, text.Entities[1].place), "line 9");
  const DxfDocument binary =
      documentOf(inBinaryForm(entitySection("0 LINE, 11 1, 0 ARC, 40 1"), BinaryForm::ShortCodes));
  EXPECT_EQ(dxfPlace(binary, binary.Entities[0].place), "byte 41");
}

TEST(DxfDocument, WhatFollowsTheEndIsNotRead) {
  const DxfDocument document =
      documentOf(inTextForm(entitySection("0 LINE, 11 1")) + "garbage\n\x01\x02\n");
  EXPECT_EQ(document.Entities.size(), 1U);
}

TEST(DxfDocument, SectionsMayLackTheirEndOrTheirName) {
  const DxfDocument document = documentOf(
      inTextForm("0 SECTION, 2 BLOCKS, 0 BLOCK, 2 A, 0 LINE, 0 SECTION, 2 ENTITIES, 0 ARC, 40 1, "
                 "0 SECTION, 0 SECTION, 2 ENTITIES, 0 ENDBLK, 0 POINT, 0 EOF"));
  EXPECT_EQ(typesOf(document.Entities), (Types{"ARC", "ENDBLK", "POINT"}));
  ASSERT_NE(document.block("A"), nullptr);
  EXPECT_EQ(document.block("A")->entities.size(), 1U);
}

struct Damage {
  const char* name;
  std::string content;
  const char* message;
  std::size_t kept;
};

TEST(DxfDocument, DamageIsNamedAndWhatStandsBeforeItIsKept) {
  const std::string two = "0 SECTION, 2 ENTITIES, 0 LINE, 11 1, 0 LINE, 11 2";
  const std::vector<Damage> damages{
      {"empty", "", "part.dxf line 1: this is not a DXF file: it has no section", 0},
      {"no section", "0\nEOF\n", "part.dxf line 1: this is not a DXF file: it has no section", 0},
      {"end missing", inTextForm(two + ", 0 ENDSEC"),
       "part.dxf line 13: the file is cut off here: its end is missing", 2},
      {"cut off within an entity", inTextForm(two),
       "part.dxf line 11: the file is cut off here: its end is missing", 1},
      {"bad number", inTextForm(two + ", 0 ARC, 40 x, 0 ENDSEC, 0 EOF"),
       "part.dxf line 15: \"x\" is no number", 2},
      {"out of range", inTextForm(two + ", 0 ARC, 40 1e999, 0 ENDSEC, 0 EOF"),
       "part.dxf line 15: \"1e999\" is out of range", 2},
      {"bad flags", inTextForm(two + ", 0 ARC, 70 99999999999, 0 ENDSEC, 0 EOF"),
       "part.dxf line 15: \"99999999999\" is no whole number in range", 2},
  };
  for (const Damage& damage : damages) {
    DxfDocument document;
    const RuntimeFailure failure =
        failureOf([&] { readDxf(document, damage.content, "part.dxf"); });
    EXPECT_EQ(failure.description(), damage.message) << damage.name;
    EXPECT_EQ(document.Entities.size(), damage.kept) << damage.name;
  }
}

// However a file is cut, what was read is the beginning of the whole.
void expectBeginningsOf(const std::string& content) {
  const DxfDocument full = documentOf(content);
  for (std::size_t length = 0; length < content.size(); ++length) {
    DxfDocument document;
    try {
      readDxf(document, std::string_view(content).substr(0, length), "part.dxf");
    } catch (const RuntimeFailure& failure) {
      takeCallChain();
      EXPECT_TRUE(failure.description().starts_with("part.dxf ")) << failure.description();
    }

    ASSERT_LE(document.Entities.size(), full.Entities.size());
    for (std::size_t at = 0; at < document.Entities.size(); ++at) {
      ASSERT_EQ(summaryOf(document.Entities[at]), summaryOf(full.Entities[at])) << length;
    }
  }
}

TEST(DxfDocument, AFileCutAtAnyByteGivesTheBeginningOfItsEntities) {
  const std::string groups = std::string(kWholeFile);
  expectBeginningsOf(inTextForm(groups));
  expectBeginningsOf(inTextForm(groups, "\r\n"));
  expectBeginningsOf(inBinaryForm(groups, BinaryForm::ShortCodes));
  expectBeginningsOf(inBinaryForm(groups, BinaryForm::LongCodes));
}

TEST(DxfDocument, AFileIsNamedWithoutItsFolder) {
  const testing::TempFolder folder;
  const std::string path = folder.write("part.dxf", "no\nsense\n");
  DxfDocument document;
  EXPECT_EQ(failureOf([&] { readDxfFile(document, path); }).description(),
            "part.dxf line 1: this is not a DXF file");
  EXPECT_EQ(failureOf([&] { readDxfFile(document, folder("none.dxf")); }).description(),
            "File not found");
}

}  // namespace
}  // namespace tess
