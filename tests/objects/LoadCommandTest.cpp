// Load commands, load options, random loads and conditional blocks built by
// hand: validity, descriptions, children, ownership, listings and checks.
// The loaded lists are set the way loading sets them.
#include <memory>

#include "TestSupport.h"

using LoadCommands = VocabularyTest;

namespace {

std::string Stars(int n)
{
    return std::string(n, '*');
}

AI_CLoadOptionList *Options(std::initializer_list<std::pair<int, char const *>> options)
{
    AI_CLoadOptionList *pList = new AI_CLoadOptionList;
    for (auto const &option : options)
        pList->Add(new AI_CLoadOption(option.first, Str(option.second)));
    return pList;
}

// The name of the option at the index.
CString const *OptionName(AI_CLoadOptionList const *pOptions, int nIndex)
{
    POSITION pos = pOptions->GetLoadOptions().GetHeadPosition();
    for (int i = 0; i < nIndex; ++i)
        pOptions->GetLoadOptions().GetNext(pos);
    return pOptions->GetLoadOptions().GetNext(pos)->GetFilename();
}

AI_CCommand *Const(unsigned int nSID, int nValue)
{
    return new AI_CDefconstCommand(nSID, nValue, nullptr);
}

}  // namespace

TEST_F(LoadCommands, ValidityOfEachKind)
{
    EXPECT_EQ(1, HandLoad("a").IsValid());
    EXPECT_EQ(0, AI_CLoadCommand(nullptr, nullptr).IsValid());

    for (int nProbability : {1, 100})
        EXPECT_EQ(1, AI_CLoadOption(nProbability, Str("f")).IsValid()) << nProbability;
    for (int nProbability : {0, 101, -1})
        EXPECT_EQ(0, AI_CLoadOption(nProbability, Str("f")).IsValid()) << nProbability;
    EXPECT_EQ(0, AI_CLoadOption(50, nullptr).IsValid());

    EXPECT_EQ(1, AI_CLoadRandomCommand(nullptr, nullptr, nullptr).IsValid());
    EXPECT_EQ(1, AI_CLoadRandomCommand(nullptr, Str("d"), nullptr).IsValid());
    EXPECT_EQ(1, AI_CLoadRandomCommand(Options({}), nullptr, nullptr).IsValid());
    EXPECT_EQ(1, AI_CLoadRandomCommand(Options({{60, "a"}, {40, "b"}}), nullptr, nullptr).IsValid());
    EXPECT_EQ(0, AI_CLoadRandomCommand(Options({{60, "a"}, {41, "b"}}), Str("d"), nullptr).IsValid());

    EXPECT_EQ(1, AI_CBlock(1, kSmallMap, new AI_CCommandList, nullptr).IsValid());
    EXPECT_EQ(1, AI_CBlock(0, kDeathMatch, new AI_CCommandList, new AI_CCommandList).IsValid());
    EXPECT_EQ(0, AI_CBlock(1, kVillager, new AI_CCommandList, nullptr).IsValid());
    EXPECT_EQ(0, AI_CBlock(1, kSmallMap, nullptr, new AI_CCommandList).IsValid());
    EXPECT_EQ(1, AI_CBlock::IsDefineID(kSmallMap));
    EXPECT_EQ(0, AI_CBlock::IsDefineID(kTrue));
}

TEST_F(LoadCommands, OptionListSumsTheProbabilities)
{
    EXPECT_EQ(0, AI_CLoadOptionList().GetTotalProbability());
    std::unique_ptr<AI_CLoadOptionList> pOptions(Options({{30, "a"}, {50, "b"}, {15, "c"}}));
    EXPECT_EQ(95, pOptions->GetTotalProbability());
    EXPECT_EQ("load options list: 3 load options", Describe(*pOptions));
}

TEST_F(LoadCommands, Descriptions)
{
    EXPECT_EQ("load command: dir/abc.per", Describe(*std::make_unique<HandLoad>("dir/abc.per")));
    AI_CLoadOption option(30, Str("x.per"));
    EXPECT_EQ("load option: 30, x.per", Describe(option));

    AI_CLoadRandomCommand bare(nullptr, nullptr, nullptr);
    EXPECT_EQ("load random command: default ?, loaded ?", Describe(bare));
    std::unique_ptr<CObject> pMade(RUNTIME_CLASS(AI_CLoadRandomCommand)->CreateObject());
    EXPECT_EQ("load random command: default ?, loaded ?", Describe(*static_cast<AI_CObject *>(pMade.get())));

    AI_CLoadOptionList *pOptions = Options({{30, "a"}, {50, "b"}});
    HandLoadRandom chosen(pOptions, Str("d"));
    EXPECT_EQ("load random command: default d, loaded ?", Describe(chosen));
    chosen.SetLoaded(OptionName(pOptions, 1), nullptr);
    EXPECT_EQ("load random command: default d, loaded b", Describe(chosen));

    EXPECT_EQ("block: load if defined SMALL-MAP", Describe(*std::make_unique<AI_CBlock>(1, kSmallMap, nullptr, nullptr)));
    EXPECT_EQ("block: load if not defined SMALL-MAP",
              Describe(*std::make_unique<AI_CBlock>(0, kSmallMap, nullptr, nullptr)));
}

TEST_F(LoadCommands, ChildrenAreTheOptionsAndTheLoadedOrBranchLists)
{
    AI_CCommandList loaded;
    HandLoad load("a");
    EXPECT_TRUE(Children(load).empty());
    load.SetLoaded(&loaded);
    EXPECT_EQ(std::vector<AI_CObject *>{&loaded}, Children(load));

    EXPECT_TRUE(Children(AI_CLoadOption(5, Str("a"))).empty());

    AI_CLoadOptionList *pOptions = Options({{30, "a"}});
    HandLoadRandom random(pOptions, nullptr);
    EXPECT_EQ(std::vector<AI_CObject *>{pOptions}, Children(random));
    random.SetLoaded(OptionName(pOptions, 0), &loaded);
    EXPECT_EQ((std::vector<AI_CObject *>{pOptions, &loaded}), Children(random));
    HandLoadRandom defaultOnly(nullptr, Str("d"));
    defaultOnly.SetLoaded(defaultOnly.GetFilename(), &loaded);
    EXPECT_EQ(std::vector<AI_CObject *>{&loaded}, Children(defaultOnly));

    AI_CCommandList *pIf = new AI_CCommandList;
    AI_CCommandList *pElse = new AI_CCommandList;
    AI_CBlock both(1, kSmallMap, pIf, pElse);
    EXPECT_EQ((std::vector<AI_CObject *>{pIf, pElse}), Children(both));
    AI_CCommandList *pOnly = new AI_CCommandList;
    AI_CBlock single(0, kSmallMap, pOnly, nullptr);
    EXPECT_EQ(std::vector<AI_CObject *>{pOnly}, Children(single));
}

TEST_F(LoadCommands, LoadCommandsOwnTheirNamesAndOptionsButNotTheLoadedList)
{
    std::vector<int> log;
    AI_CCommandList *pLoaded = new Tracked<AI_CCommandList>(&log, 1);
    {
        HandLoad load("a", pLoaded);
        AI_CLoadOptionList *pOptions = new Tracked<AI_CLoadOptionList>(&log, 2);
        pOptions->Add(new Tracked<AI_CLoadOption>(&log, 3, 10, Str("o")));
        HandLoadRandom random(pOptions, Str("d"));
        random.SetLoaded(OptionName(pOptions, 0), pLoaded);
        AI_CBlock block(1, kSmallMap, new Tracked<AI_CCommandList>(&log, 4), new Tracked<AI_CCommandList>(&log, 5));
    }
    // The block's lists, then the random load's options; the loaded list
    // belongs to whoever stored it.
    EXPECT_EQ((std::vector<int>{4, 5, 2, 3}), log);
    delete pLoaded;
    EXPECT_EQ((std::vector<int>{4, 5, 2, 3, 1}), log);
}

TEST_F(LoadCommands, InvalidateDropsWhatTheCommandOwnsWithoutDestroyingIt)
{
    std::vector<int> log;
    AI_CCommandList loaded;

    CString *pName = Str("a");
    {
        HandLoad load(pName, &loaded);
        load.Invalidate();
        EXPECT_EQ(nullptr, load.GetFilename());
        EXPECT_EQ(&loaded, load.GetCommands());  // the loaded list stays
        EXPECT_EQ(0, load.IsValid());
        EXPECT_EQ(1, load.IsLoaded());
    }
    EXPECT_STREQ("a", *pName);
    delete pName;

    CString *pOptionName = Str("o");
    {
        AI_CLoadOption option(40, pOptionName);
        option.Invalidate();
        EXPECT_EQ(0, option.GetProbability());
        EXPECT_EQ(nullptr, option.GetFilename());
        EXPECT_EQ(0, option.IsValid());
    }
    EXPECT_STREQ("o", *pOptionName);
    delete pOptionName;

    AI_CLoadOptionList *pOptions = new Tracked<AI_CLoadOptionList>(&log, 1);
    CString *pDefault = Str("d");
    {
        HandLoadRandom random(pOptions, pDefault);
        random.SetLoaded(pDefault, &loaded);
        random.Invalidate();
        EXPECT_EQ(nullptr, random.GetOptions());
        EXPECT_EQ(nullptr, random.GetFilename());
        EXPECT_EQ(&loaded, random.GetCommands());
        EXPECT_EQ("load random command: default ?, loaded ?", Describe(random));
    }
    EXPECT_TRUE(log.empty());
    delete pOptions;
    delete pDefault;

    AI_CCommandList *pIf = new Tracked<AI_CCommandList>(&log, 2);
    AI_CCommandList *pElse = new Tracked<AI_CCommandList>(&log, 3);
    {
        AI_CBlock block(1, kSmallMap, pIf, pElse);
        block.Invalidate();
        EXPECT_EQ(1, block.GetIf());
        EXPECT_EQ(0u, block.GetSID());
        EXPECT_EQ(nullptr, block.GetIfCommands());
        EXPECT_EQ(nullptr, block.GetElseCommands());
        EXPECT_EQ(0, block.IsValid());
    }
    EXPECT_EQ(std::vector<int>{1}, log);
    delete pIf;
    delete pElse;
    EXPECT_EQ((std::vector<int>{1, 2, 3}), log);
}

TEST_F(LoadCommands, LoadCommandListsItsFileBetweenBanners)
{
    HandLoad unloaded("abc");
    EXPECT_EQ(";\t(load abc)\n"
              ";\tSTART abc " + Stars(70) + "\n"
              "\n"
              "\n"
              ";\tEND abc " + Stars(72) + "\n",
              Listing(unloaded, 1));

    unsigned int nSID = AI_AddConstant("limit", 0);
    std::unique_ptr<AI_CCommandList> pLoaded(Commands({Const(nSID, 10)}));
    HandLoad loaded("abc", pLoaded.get());
    EXPECT_EQ(";(load abc)\n"
              ";START abc " + Stars(70) + "\n"
              "\n"
              "(defconst limit 10)\n"
              "\n"
              "\n"
              ";END abc " + Stars(72) + "\n",
              Listing(loaded));
    EXPECT_EQ(0, unloaded.IsLoaded());
    EXPECT_EQ(1, loaded.IsLoaded());
}

TEST_F(LoadCommands, BannersFillUpToTheWidthAndLongNamesGetNoFill)
{
    std::string strLong73(73, 'n');
    std::string strLong80(80, 'm');
    std::string strName72(72, 'k');
    EXPECT_EQ(";(load " + strLong73 + ")\n;START " + strLong73 + " \n\n\n;END " + strLong73 + " **\n",
              Listing(HandLoad(strLong73.c_str())));
    EXPECT_EQ(";(load " + strLong80 + ")\n;START " + strLong80 + " \n\n\n;END " + strLong80 + " **\n",
              Listing(HandLoad(strLong80.c_str())));
    EXPECT_EQ(";(load " + strName72 + ")\n;START " + strName72 + " *\n\n\n;END " + strName72 + " ***\n",
              Listing(HandLoad(strName72.c_str())));
}

TEST_F(LoadCommands, OptionsListOnCommentLinesWithoutLineEnd)
{
    AI_CLoadOption option(30, Str("a.per"));
    EXPECT_EQ(";\t\t30 a.per", Listing(option, 2));
    std::unique_ptr<AI_CLoadOptionList> pOptions(Options({{30, "a"}, {5, "b"}}));
    EXPECT_EQ(";\t30 a\n;\t5 b\n", Listing(*pOptions, 1));
}

TEST_F(LoadCommands, RandomLoadListsItsChoiceAndTheChosenFile)
{
    unsigned int nSID = AI_AddConstant("limit", 0);
    std::unique_ptr<AI_CCommandList> pLoaded(Commands({Const(nSID, 4)}));
    AI_CLoadOptionList *pOptions = Options({{30, "a"}, {50, "b"}});
    HandLoadRandom random(pOptions, Str("d"));
    EXPECT_EQ(";\t(load-random\n"
              ";\t\t30 a\n"
              ";\t\t50 b\n"
              ";\t\td\n"
              ";\t)\n"
              ";\tloaded: none\n"
              "\n",
              Listing(random, 1));

    random.SetLoaded(OptionName(pOptions, 1), pLoaded.get());
    EXPECT_EQ(";(load-random\n"
              ";\t30 a\n"
              ";\t50 b\n"
              ";\td\n"
              ";)\n"
              ";loaded: b\n"
              "\n"
              ";START b " + Stars(72) + "\n"
              "\n"
              "(defconst limit 4)\n"
              "\n"
              "\n"
              ";END b " + Stars(74) + "\n",
              Listing(random));

    // Chosen, but the file gave no list: the banners stand alone.
    random.SetLoaded(random.GetFilename(), nullptr);
    EXPECT_EQ(";(load-random\n;\t30 a\n;\t50 b\n;\td\n;)\n;loaded: d\n\n"
              ";START d " + Stars(72) + "\n\n\n;END d " + Stars(74) + "\n",
              Listing(random));

    AI_CLoadRandomCommand bare(nullptr, nullptr, nullptr);
    EXPECT_EQ(";(load-random\n;)\n;loaded: none\n\n", Listing(bare));
}

TEST_F(LoadCommands, BlockListsItsDirectivesAndBranches)
{
    unsigned int nSID = AI_AddConstant("limit", 0);
    AI_CBlock both(1, kSmallMap, Commands({Const(nSID, 1)}), Commands({Const(nSID, 2)}));
    EXPECT_EQ("\t#load-if-defined SMALL-MAP\n"
              "\n"
              "\t\t(defconst limit 1)\n"
              "\n"
              "\t#else ; SMALL-MAP\n"
              "\n"
              "\t\t(defconst limit 2)\n"
              "\n"
              "\t#end-if ; SMALL-MAP\n",
              Listing(both, 1));

    AI_CBlock negated(0, kSmallMap, Commands({Const(nSID, 1)}), Commands({}));
    EXPECT_EQ("#load-if-not-defined SMALL-MAP\n"
              "\n"
              "\t(defconst limit 1)\n"
              "\n"
              "#else ; not SMALL-MAP\n"
              "\n"
              "#end-if ; not SMALL-MAP\n",
              Listing(negated));

    AI_CBlock noElse(0, kDeathMatch, Commands({}), nullptr);
    EXPECT_EQ("#load-if-not-defined DEATH-MATCH\n\n#end-if ; not DEATH-MATCH\n", Listing(noElse));

    AI_CBlock unnamed(1, 105, Commands({}), nullptr);
    EXPECT_EQ("#load-if-defined \n\n#end-if ; \n", Listing(unnamed));
}

TEST_F(LoadCommands, LoadedListsAreCheckedThroughTheirCommands)
{
    std::vector<std::string> log;
    HandLoad load("a");
    EXPECT_EQ(0, load.Check());  // nothing loaded
    AI_CCommandList passing;
    passing.Add(new ProbeCommand(1, 1, &log, "p"));
    AI_CCommandList failing;
    failing.Add(new ProbeCommand(0, 1, &log, "f"));
    load.SetLoaded(&passing);
    EXPECT_EQ(1, load.Check());
    load.SetLoaded(&failing);
    EXPECT_EQ(0, load.Check());

    AI_CLoadOptionList *pOptions = Options({{50, "a"}});
    HandLoadRandom random(pOptions, nullptr);
    EXPECT_EQ(0, random.Check());
    random.SetLoaded(OptionName(pOptions, 0), nullptr);
    EXPECT_EQ(0, random.Check());  // chosen but nothing loaded
    random.SetLoaded(OptionName(pOptions, 0), &passing);
    EXPECT_EQ(1, random.Check());
    random.SetLoaded(OptionName(pOptions, 0), &failing);
    EXPECT_EQ(0, random.Check());
    EXPECT_EQ((std::vector<std::string>{"check p", "check f", "check p", "check f"}), log);
}

TEST_F(LoadCommands, BlockChecksTheBranchItsFlagNamesWithoutEvaluatingTheDefine)
{
    std::vector<std::string> log;
    // SMALL-MAP holds with the default settings; the flag alone decides.
    AI_CBlock ifFailing(1, kSmallMap, Commands({new ProbeCommand(0, 1, &log, "if")}),
                        Commands({new ProbeCommand(1, 1, &log, "else")}));
    EXPECT_EQ(0, ifFailing.Check());
    AI_CBlock ifPassing(1, kDeathMatch, Commands({new ProbeCommand(1, 1, &log, "if")}), nullptr);
    EXPECT_EQ(1, ifPassing.Check());
    AI_CBlock elseFailing(0, kSmallMap, Commands({new ProbeCommand(1, 1, &log, "if")}),
                          Commands({new ProbeCommand(0, 1, &log, "else")}));
    EXPECT_EQ(0, elseFailing.Check());
    AI_CBlock noElse(0, kSmallMap, Commands({new ProbeCommand(0, 1, &log, "if")}), nullptr);
    EXPECT_EQ(1, noElse.Check());
    EXPECT_EQ((std::vector<std::string>{"check if", "check if", "check else"}), log);
}

TEST_F(LoadCommands, BlockLoadsBothBranchesAndNeverCountsAsLoaded)
{
    std::vector<std::string> log;
    AI_CBlock block(0, kSmallMap,
                    Commands({new ProbeCommand(1, 0, &log, "a"), new ProbeCommand(1, 1, &log, "b")}),
                    Commands({new ProbeCommand(1, 0, &log, "c")}));
    EXPECT_EQ(0, block.IsLoaded());
    block.Load();
    block.Load();
    EXPECT_EQ((std::vector<std::string>{"load a", "load c", "load a", "load c"}), log);
    EXPECT_EQ(0, block.IsLoaded());

    AI_CCommandList list;
    list.Add(new AI_CBlock(1, kSmallMap, Commands({new ProbeCommand(1, 0, &log, "d")}), nullptr));
    list.Load();
    EXPECT_EQ("load d", log.back());
}

// A file that loads itself: the load command inside the file's list points
// back at that list.
TEST_F(LoadCommands, SelfLoadingListIsWrittenOnceAndCheckedOnce)
{
    std::vector<std::string> log;
    AI_CCommandList self;
    self.Add(new ProbeCommand(1, 1, &log, "p"));
    self.Add(new HandLoad("self", &self));

    // The probe writes nothing; the list's line end follows it.
    EXPECT_EQ("\n"
              ";(load self)\n"
              ";START self " + Stars(69) + "\n"
              "\n"
              "\n"
              ";END self " + Stars(71) + "\n"
              "\n",
              Listing(self));

    // Reached from outside, the list is written once, its inner load only
    // as banners.
    HandLoad outer("self", &self);
    EXPECT_EQ(";\t(load self)\n"
              ";\tSTART self " + Stars(69) + "\n"
              "\n"
              "\n"
              ";\t(load self)\n"
              ";\tSTART self " + Stars(69) + "\n"
              "\n"
              "\n"
              ";\tEND self " + Stars(71) + "\n"
              "\n"
              "\n"
              ";\tEND self " + Stars(71) + "\n",
              Listing(outer, 1));

    EXPECT_EQ(1, outer.Check());
    EXPECT_EQ(1, self.Check());
    EXPECT_EQ((std::vector<std::string>{"check p", "check p"}), log);

    // A failing command after the cycle still fails the check, once.
    self.Add(new ProbeCommand(0, 1, &log, "f"));
    EXPECT_EQ(0, self.Check());
    EXPECT_EQ((std::vector<std::string>{"check p", "check p", "check p", "check f"}), log);
}

TEST_F(LoadCommands, CycleThroughARandomLoadStopsToo)
{
    unsigned int nSID = AI_AddConstant("limit", 0);
    AI_CCommandList first;
    AI_CCommandList second;
    AI_CLoadOptionList *pOptions = Options({{100, "b"}});
    HandLoadRandom *pRandom = new HandLoadRandom(pOptions, nullptr);
    pRandom->SetLoaded(OptionName(pOptions, 0), &second);
    first.Add(Const(nSID, 1));
    first.Add(pRandom);
    second.Add(new HandLoad("a", &first));

    EXPECT_EQ("(defconst limit 1)\n"
              "\n"
              ";(load-random\n"
              ";\t100 b\n"
              ";)\n"
              ";loaded: b\n"
              "\n"
              ";START b " + Stars(72) + "\n"
              "\n"
              ";(load a)\n"
              ";START a " + Stars(72) + "\n"
              "\n"
              "\n"
              ";END a " + Stars(74) + "\n"
              "\n"
              "\n"
              ";END b " + Stars(74) + "\n"
              "\n",
              Listing(first));
    EXPECT_EQ(1, first.Check());
    EXPECT_EQ(1, second.Check());
}
