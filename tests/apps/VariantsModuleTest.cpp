#include "RunTest.h"

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class VariantsModuleTest : public RunTest {};

TEST_F(VariantsModuleTest, ListsSetsGroupsVariantsAndStates) {
  EXPECT_EQ(printed("print(variants.sets())\nprint(variants.groups())\n"
                    "print(variants.group_of('Summer'), variants.group_of(name='Scripted'))\n"
                    "print(variants.states('Summer'))\nprint(variants.states('Winter'))\n"
                    "for kind in ('node', 'material', 'transform', 'light', 'overlay'):\n"
                    "    print(variants.variants(kind))\n"
                    "print(variants.options('overlay', 'Title'))\n"
                    "print(variants.state('node', 'Roof'), variants.state('overlay', 'Title'))"),
            "['Summer', 'Winter', 'Scripted']\n{'Looks': ['Summer', 'Winter']}\nLooks None\n"
            "{'node': {'Roof': 'Open'}, 'transform': {'Doors': 'Wide'}, 'light': {'Sun': "
            "'!Disable'}, 'overlay': {'Title': 'Deutsch'}}\n"
            "{'node': {'Roof': 'Closed'}, 'material': {'Paint': 'Blue'}}\n"
            "['Roof', 'Leaves']\n['Paint']\n['Doors']\n['Sun']\n['Title']\n"
            "['!None', 'English', 'Deutsch']\nClosed !None\n");
}

TEST_F(VariantsModuleTest, MakesFindsRenamesAndRemovesSets) {
  EXPECT_EQ(printed("print(variants.create_set('New', group='Looks').getName())\n"
                    "print(variants.create_set('Free').getName(), variants.find_set('None'))\n"
                    "variants.find_set('New').setValue('Price', '1')\n"
                    "variants.rename_set('New', new_name='Old')\n"
                    "print(variants.find_set('Old').getValue('Price'))\n"
                    "variants.rename_set('Old', 'Old')\n"
                    "variants.remove_set('Summer')\n"
                    "print(variants.sets(), variants.groups())"),
            "New\nFree None\n1\n['Winter', 'Scripted', 'Old', 'Free'] "
            "{'Looks': ['Winter', 'Old']}\n");
}

TEST_F(VariantsModuleTest, MakesRenamesRemovesAndFillsGroups) {
  EXPECT_EQ(printed("variants.create_group('First')\nvariants.create_group('Hid', visible=False)\n"
                    "variants.set_group('Scripted', 'First')\n"
                    "variants.set_group('Summer', group='First')\n"
                    "variants.set_group('Winter', None)\nvariants.set_group('Winter', None)\n"
                    "variants.rename_group('First', 'Last')\nvariants.remove_group('Looks')\n"
                    "print(variants.groups(), variants.group_of('Winter'))\n"
                    "variants.write_document('new.xml')"),
            "{'Last': ['Scripted', 'Summer'], 'Hid': []} None\n");
  EXPECT_THAT(read("new.xml"), HasSubstr("<VariantGroup name=\"Hid\""));
}

TEST_F(VariantsModuleTest, ChangesTheStatesOfASet) {
  EXPECT_EQ(printed("variants.set_state('Winter', 'material', 'Paint', 'Red')\n"
                    "variants.set_state('Winter', 'light', 'Moon', 'Full')\n"
                    "variants.set_state('Winter', 'overlay', 'Title', 'English')\n"
                    "variants.set_state('Winter', 'transform', 'Doors', 'Shut')\n"
                    "variants.remove_state('Winter', 'node', 'Roof')\n"
                    "variants.remove_state('Winter', 'node', 'Roof')\n"
                    "print(variants.states('Winter'))\n"
                    "for kind in ('material', 'light', 'overlay'):\n"
                    "    variants.remove_state('Winter', kind, variant={'material': 'Paint',\n"
                    "                          'light': 'Moon', 'overlay': 'Title'}[kind])\n"
                    "print(variants.states('Winter'))"),
            "{'material': {'Paint': 'Red'}, 'transform': {'Doors': 'Shut'}, "
            "'light': {'Moon': 'Full'}, 'overlay': {'Title': 'English'}}\n"
            "{'transform': {'Doors': 'Shut'}}\n");
}

TEST_F(VariantsModuleTest, SelectsSetsAndSingleStates) {
  EXPECT_EQ(printed("def now():\n"
                    "    print([variants.state(k, v) for k, v in (('node', 'Roof'),\n"
                    "          ('material', 'Paint'), ('transform', 'Doors'))])\n"
                    "variants.select_set('Winter')\nnow()\n"
                    "variants.select_set('Summer', skip_viewpoint=True)\nnow()\n"
                    "variants.select_state('material', 'Paint', 'Red')\nnow()\n"
                    "variants.select_state('node', 'Roof', '!Previous')\nnow()"),
            "['Closed', 'Blue', 'Shut']\n['Open', 'Blue', 'Wide']\n['Open', 'Red', 'Wide']\n"
            "['Closed', 'Red', 'Wide']\n");
}

TEST_F(VariantsModuleTest, ReadsWritesAndClearsDocuments) {
  write("more.xml", "<Variants><VariantSet name=\"Summer\"/><VariantSet name=\"New\"/></Variants>");
  EXPECT_EQ(printed("import pathlib\nvariants.read_document(pathlib.Path('more.xml'))\n"
                    "print(sorted(variants.sets()), variants.states('Summer'))\n"
                    "variants.write_document(b'all.xml')\nvariants.clear()\n"
                    "print(variants.sets(), variants.groups(), variants.variants('node'))\n"
                    "variants.read_document('all.xml')\nprint(sorted(variants.sets()))"),
            "['New', 'Scripted', 'Summer', 'Winter'] {}\n[] {} []\n"
            "['New', 'Scripted', 'Summer', 'Winter']\n");
}

TEST_F(VariantsModuleTest, WritesTheSceneAndPictures) {
  printed(
      "variants.select_set('Winter')\nvariants.save_scene('saved.glb')\n"
      "variants.render('one.png', 8, 6, 1)\nvariants.render('two.jpg', height=6, width=8,"
      " samples=1)");
  EXPECT_EQ(read("saved.glb").substr(0, 4), "glTF");
  EXPECT_EQ(read("one.png").substr(1, 3), "PNG");
  EXPECT_EQ(read("one.png").substr(16, 8), std::string("\0\0\0\x08\0\0\0\x06", 8));
  EXPECT_EQ(read("two.jpg").substr(0, 2), "\xff\xd8");
}

TEST_F(VariantsModuleTest, DocumentThatCannotBeParsedChangesNothing) {
  write("broken.xml", "<Variants><VariantSet name=\"New\"/><VariantSet name=\"Summer\"/>");
  EXPECT_EQ(printed("before = variants.sets(), variants.groups(), variants.states('Summer')\n"
                    "try:\n    variants.read_document('broken.xml')\n"
                    "except ValueError as error:\n    print(str(error)[:34])\n"
                    "print(before == (variants.sets(), variants.groups(), "
                    "variants.states('Summer')))\n"
                    "variants.read_document('car.xml')\nprint('read again')"),
            "cannot read document: broken.xml: \nTrue\nread again\n");
}

TEST_F(VariantsModuleTest, FileThatCannotBeWrittenToIsTold) {
  makeFullDevice("full");
  EXPECT_EQ(raised("variants.write_document('full')"),
            "OSError: [Errno 28] No space left on device: 'full'\n");
  EXPECT_EQ(raised("variants.render('full', 8, 8, 1)"),
            "OSError: [Errno 28] No space left on device: 'full'\n");
  EXPECT_EQ(raised("variants.save_scene('full')"),
            "OSError: [Errno 5] not a regular file: 'full'\n");
  EXPECT_TRUE(isDevice("full"));
}

TEST_F(VariantsModuleTest, ErrorsLeaveTheManagerAsItWas) {
  EXPECT_EQ(printed("def all():\n    return variants.sets(), variants.groups()\n"
                    "before = all()\n"
                    "for wrong in (lambda: variants.create_set('New', 'xyz'),\n"
                    "              lambda: variants.rename_set('Summer', 'Winter'),\n"
                    "              lambda: variants.set_group('Summer', 'xyz'),\n"
                    "              lambda: variants.create_group('Looks', False)):\n"
                    "    try:\n        wrong()\n        print('no error')\n"
                    "    except (LookupError, ValueError):\n        print(before == all())"),
            "True\nTrue\nTrue\nTrue\n");
}

TEST_F(VariantsModuleTest, HelpTellsEveryFunctionInPythonsWords) {
  const std::string help = printed(
      "import pydoc\nprint(pydoc.render_doc(variants, renderer=pydoc.plaintext))\n"
      "assert all(getattr(variants, name).__doc__ for name in variants.__all__)");
  EXPECT_THAT(help, AllOf(HasSubstr("create_set(name: str, group: Optional[str] = None) -> "
                                    "kuVariantSetPtr.kuVariantSetPtr\n"
                                    "        Make an empty set, in a group or in none"),
                          HasSubstr("width: int = 800, height: int = 600, samples: int = 32"),
                          Not(HasSubstr("C++")), Not(HasSubstr("(object)arg")),
                          Not(HasSubstr("_variants"))));
}

TEST_F(VariantsModuleTest, IsThereForTheScriptsOfADocumentToo) {
  write("car.xml",
        "<Variants><VariantSet name=\"S\"><Script>import variants\nprint(variants.sets())"
        "</Script></VariantSet></Variants>");
  EXPECT_EQ(run({"--allow-scripts", "select", "car.gltf", "car.xml", "S"}).err, "['S']\n");
}

TEST_F(VariantsModuleTest, NamesOfAllSortsComeBackAsTheyWere) {
  EXPECT_EQ(
      printed("names = ['\\U0001f600', 'a\\nb', '\"<&>', ' ', 'x' * 10000, '\\x01', \"');\"]\n"
              "for name in names: variants.create_set(name, 'Looks')\n"
              "print(variants.sets()[3:] == names)\n"
              "for name in names: variants.select_set(name)\n"
              "for name in names: variants.remove_set(name)\nprint(len(variants.sets()))"),
      "True\n3\n");
}

}  // namespace
