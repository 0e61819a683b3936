#include <gmock/gmock.h>

#include "app/LoadProcedure.h"
#include "app/StoreProcedure.h"
#include "diag/RecordingFile.h"
#include "platform/FileSystem.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

constexpr std::string_view kRestOfNames =
    " P1=\"\" MAP=\"\" deltaP=\"\" Lambda=\"\" Lambda2=\"\" Accum=\"\" Tpet=\"\" Tinj=\"\" "
    "TPS=\"\"";

std::string Recording(const std::string& data, std::string_view version = "1.00") {
  return "<GASECUOscilloscope Version=\"" + std::string(version) + "\">" + data +
         "<Notes Text=\"a &lt; b\"/></GASECUOscilloscope>";
}
std::string Data(const std::string& first_three) {
  return "<Osc_data " + first_three + std::string(kRestOfNames) + "/>";
}

RecordingContents Read(const std::string& text) {
  XmlDocument document;
  document.SetDocumentText(text);
  return ReadRecording(document);
}

std::string Joined(const std::deque<double>& samples) {
  std::string text;
  for (const double sample : samples) text += std::to_string(sample).substr(0, 5) + ' ';
  return text;
}

TEST(RecordingText, IsLaidOutAsOtherProgramsExpect) {
  ScopeTraces traces;
  traces.channels[0] = {3.455, 0.9, 0};
  traces.channels[11] = {-12.8};
  traces.notes = "idle \"cold\"\r\n& lean";
  EXPECT_EQ(
      RecordingDocument(traces).Text(),
      "<?xml version=\"1.0\"?>\r\n"
      "<GASECUOscilloscope \r\n\tVersion=\"1.00\">\r\n"
      "<Osc_data \r\n\tRPM=\"3.46;0.90;0.00\" \r\n\tTgas=\"\" \r\n\tTwat=\"\" \r\n\tP1=\"\""
      " \r\n\tMAP=\"\" \r\n\tdeltaP=\"\" \r\n\tLambda=\"\" \r\n\tLambda2=\"\" \r\n\tAccum=\"\""
      " \r\n\tTpet=\"\" \r\n\tTinj=\"\" \r\n\tTPS=\"-12.80\"/>\r\n"
      "<Notes \r\n\t\tText=\"idle &quot;cold&quot;\r\n&amp; lean\"/>\r\n"
      "</GASECUOscilloscope>\r\n");
  const RecordingContents read = Read(RecordingDocument(traces).Text());
  EXPECT_EQ(read.fault, RecordingFault::kNone);
  EXPECT_EQ(read.detail, "");
  EXPECT_EQ(read.traces.notes, traces.notes);
  EXPECT_EQ(read.traces.channels[0], (std::deque<double>{3.46, 0.9, 0}));
  EXPECT_EQ(read.traces.channels[11], traces.channels[11]);
  EXPECT_EQ(RecordingCsv(traces),
            "seconds_ago,RPM,Tgas,Twat,P1,MAP,deltaP,Lambda,Lambda2,Accum,Tpet,Tinj,TPS\n"
            "0.0,3.455,,,,,,,,,,,-12.8\n0.1,0.9,,,,,,,,,,,\n0.2,0,,,,,,,,,,,\n");
}

TEST(RecordingText, SaysWhatItCouldNotRead) {
  const std::string empty = "Tgas=\"\" Twat=\"\"";
  const std::string zeros(400, '0');
  const struct {
    std::string text;
    RecordingFault fault;
    std::string_view detail;
    std::string_view first_channel;
  } cases[] = {
      {Recording(Data("RPM=\"1.5;-2;.25;+3;1e1\"" + empty)), RecordingFault::kNone, "",
       "1.500 -2.00 0.250 3.000 10.00 "},
      {Recording(Data("RPM=\"1.00;\"" + empty)), RecordingFault::kNone, "", "1.000 "},
      // Too small for a double, and at home in one.
      {Recording(Data("RPM=\"1e-400;-1E-99999999999999999999;0." + zeros + "1;" + zeros + "2;1" +
                      zeros + "e-400\"" + empty)),
       RecordingFault::kNone, "", "0.000 -0.00 0.000 2.000 1.000 "},
      {Recording(Data("RPM=\"1e+400;1e99999999999999999999;-1" + zeros + ";2.00\"" + empty)),
       RecordingFault::kIncomplete, "Channel RPM: \"1e+400\" is no number", "2.000 "},
      {Recording(Data("RPM=\"1,5;2.00\"" + empty)), RecordingFault::kIncomplete,
       "Channel RPM: \"1,5\" is no number", "2.000 "},
      {Recording(Data("RPM=\"1.0x;;nan;inf;1e999;2.00\" Twat=\"--1\" Tgas=\"\"")),
       RecordingFault::kIncomplete,
       "Channel RPM: \"1.0x\" is no number; Channel Twat: \"--1\" is no number", "2.000 "},
      {Recording(Data("RPM=\"1.00\" Twat=\"\"")), RecordingFault::kIncomplete, "Missing: Tgas",
       "1.000 "},
      {Recording(Data(empty), "1.0"), RecordingFault::kNoRecording,
       "The recording's version is \"1.0\", not \"1.00\"", ""},
      {Recording(""), RecordingFault::kNoRecording, "The recording has no data", ""},
      {Recording("<Osc_data RPM=\"1"), RecordingFault::kIncomplete,
       "Channel RPM: \"1<Notes Text=\" is no number; Missing: Tgas, Twat, P1, MAP, deltaP, Lambda, "
       "Lambda2, Accum, Tpet, Tinj, TPS; Missing: Notes; Incorrect name character at offset 72",
       ""},
      {"<GASECUConfiguration Version=\"1.00\"/><Notes/>", RecordingFault::kNoRecording,
       "The file is a configuration, not a recording; Root element has sibling", ""},
      {"MZ", RecordingFault::kNoRecording, "The file is not a recording; No root element", ""},
      {"", RecordingFault::kNoRecording, "The file is not a recording; Empty document", ""},
  };
  for (const auto& c : cases) {
    const RecordingContents read = Read(c.text);
    EXPECT_EQ(read.fault, c.fault) << c.text;
    EXPECT_EQ(read.detail, c.detail) << c.text;
    EXPECT_EQ(Joined(read.traces.channels[0]), c.first_channel) << c.text;
    EXPECT_EQ(read.traces.notes, c.first_channel.empty() ? "" : "a < b");
  }
}

TEST(RecordingText, AMillionSamplesAndEveryTruncatedPrefix) {
  ScopeTraces traces;
  traces.channels[3].assign(1'000'000, 1.25);
  traces.channels[4].assign(17, -0.5);
  XmlDocument document = RecordingDocument(traces);
  EXPECT_EQ(ReadRecording(document).traces.channels, traces.channels);

  const std::string text = Recording(Data("RPM=\"1.00;2.00\" Tgas=\"\" Twat=\"3.00\""));
  const std::size_t complete = text.find("<Notes");
  for (std::size_t length = 0; length < text.size(); ++length) {
    const RecordingContents read = Read(text.substr(0, length));
    EXPECT_NE(read.fault, RecordingFault::kNone) << length;
    EXPECT_NE(read.detail, "") << length;
    EXPECT_EQ(read.traces.channels[0].size(), length >= complete ? 2U : 0U) << length;
  }
}

class RecordingFile : public testing::Test {
 protected:
  RecordingFile() {
    scope_.AddSample({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    scope_.SetNotes("mine");
  }
  std::filesystem::path Write(const std::string& text) {
    const std::filesystem::path path = folder_.Path() / "written.osc";
    Message reason;
    EXPECT_TRUE(WriteWholeFile(path, text, reason));
    return path;
  }

  bool Save(const std::filesystem::path& path) {
    return SaveRecording(scope_, scope_.Snapshot(), path, boxes_);
  }
  RecordingLoad Load(const std::filesystem::path& path) {
    return LoadRecording(scope_, path, boxes_);
  }

  const TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_.Path() / PathFromText("a.\xC3\x9F.osc");
  ScriptedBoxes boxes_;
  Oscilloscope scope_;
};

TEST_F(RecordingFile, SavesAndLoadsBack) {
  ASSERT_TRUE(Save(file_));
  EXPECT_FALSE(scope_.Unsaved());
  scope_.AddSample({});
  EXPECT_EQ(Load(file_), RecordingLoad::kDeclined) << "it may not be lost";
  EXPECT_FALSE(Save(file_)) << "the old file may not be written over";
  EXPECT_EQ(scope_.Traces().Length(), 2U);
  boxes_.answer = true;
  ASSERT_EQ(Load(file_), RecordingLoad::kLoaded);
  EXPECT_EQ(boxes_.statuses.back(), "Loaded " + PathText(file_));
  EXPECT_THAT(boxes_.said, testing::ElementsAre("question: " + std::string(kRecordingUnsaved),
                                                "question: " + std::string(kStoreQuestion),
                                                "question: " + std::string(kRecordingUnsaved),
                                                "note: " + std::string(kConfigurationLoaded)));
  EXPECT_EQ(scope_.Samples(ScopeChannel::kTps), std::deque<double>{12}) << "the old one is gone";
  EXPECT_EQ(scope_.Notes(), "mine");
  EXPECT_FALSE(scope_.Unsaved());
}

TEST_F(RecordingFile, AFileThatCannotBeReadLeavesEverythingAsItWas) {
  boxes_.answer = true;
  for (const std::filesystem::path& path :
       {folder_.Path() / "absent.osc", folder_.Path(), Write(Recording("", "1.01"))}) {
    EXPECT_EQ(Load(path), RecordingLoad::kFailed);
    EXPECT_EQ(boxes_.said.back(), "error: " + std::string(kConfigurationNotLoaded));
    EXPECT_FALSE(boxes_.statuses.back().empty());
    EXPECT_EQ(scope_.Notes(), "mine");
    EXPECT_EQ(scope_.Samples(ScopeChannel::kRpm), std::deque<double>{1});
    EXPECT_TRUE(scope_.Unsaved());
  }
  EXPECT_FALSE(Save(folder_.Path() / "written.osc" / "no folder.osc"));
  EXPECT_TRUE(scope_.Unsaved());
  EXPECT_EQ(boxes_.said.back(), "error: " + std::string(kConfigurationNotStored));
  EXPECT_EQ(Load(Write(Recording(Data("RPM=\"1,5;7.00\"")))), RecordingLoad::kIncomplete);
  EXPECT_EQ(scope_.Samples(ScopeChannel::kRpm), std::deque<double>{7}) << "what could be read";
}

}  // namespace
}  // namespace zelorgas
