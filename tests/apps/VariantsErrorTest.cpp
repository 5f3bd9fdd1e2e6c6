#include "RunTest.h"

namespace {

struct ErrorRow {
  const char* name;
  const char* expression;
  const char* error;
};

void PrintTo(const ErrorRow& row, std::ostream* out) { *out << row.name; }

class VariantsErrorTest : public RunTest, public ::testing::WithParamInterface<ErrorRow> {};

TEST_P(VariantsErrorTest, IsRaised) {
  EXPECT_EQ(raised(GetParam().expression), std::string(GetParam().error) + '\n');
}

const ErrorRow errors[] = {
    {"UnknownSetWithTheNearest", "variants.select_set('Sumer')",
     "UnknownName: unknown set: Sumer: there is none of that name; did you mean \"Summer\"?"},
    {"UnknownSetWithNoneNear", "variants.remove_set('xyz')",
     "UnknownName: unknown set: xyz: there is none of that name"},
    {"UnknownSetToRename", "variants.rename_set('xyz', 'a')",
     "UnknownName: unknown set: xyz: there is none of that name"},
    {"UnknownSetOfStates", "variants.states('xyz')",
     "UnknownName: unknown set: xyz: there is none of that name"},
    {"UnknownSetToFill", "variants.set_state('xyz', 'node', 'Roof', 'Open')",
     "UnknownName: unknown set: xyz: there is none of that name"},
    {"UnknownSetToEmpty", "variants.remove_state('xyz', 'node', 'Roof')",
     "UnknownName: unknown set: xyz: there is none of that name"},
    {"UnknownSetOfAGroup", "variants.group_of('xyz')",
     "UnknownName: unknown set: xyz: there is none of that name"},
    {"EmptyNameOfASet", "variants.select_set('')",
     "UnknownName: unknown set: : there is none of that name"},
    {"UnknownGroup", "variants.set_group('Summer', 'Look')",
     "UnknownName: unknown group: Look: there is none of that name; did you mean \"Looks\"?"},
    {"UnknownGroupOfANewSet", "variants.create_set('New', 'xyz')",
     "UnknownName: unknown group: xyz: there is none of that name"},
    {"UnknownGroupToRename", "variants.rename_group('xyz', 'a')",
     "UnknownName: unknown group: xyz: there is none of that name"},
    {"UnknownGroupToRemove", "variants.remove_group('xyz')",
     "UnknownName: unknown group: xyz: there is none of that name"},
    {"UnknownVariant", "variants.options('node', 'Rof')",
     "UnknownName: unknown variant: node:Rof: there is none of that name; did you mean \"Roof\"?"},
    {"UnknownVariantOfAState", "variants.state('light', 'Roof')",
     "UnknownName: unknown variant: light:Roof: there is none of that name"},
    {"UnknownState", "variants.select_state('node', 'Roof', 'Opened')",
     "UnknownName: unknown state: node:Roof=Opened: there is none of that name; did you mean "
     "\"Open\"?"},
    {"UnknownNamesAreLookups",
     "print(issubclass(variants.UnknownName, LookupError)); raise KeyError(1)",
     "True\nKeyError: 1"},
    {"UnknownKind", "variants.variants('nodes')",
     "ValueError: a kind is node, material, transform, light or overlay, not \"nodes\""},
    {"SetThatExists", "variants.create_set('Summer')",
     "ValueError: there is a set \"Summer\" already"},
    {"RenamedToASetThatExists", "variants.rename_set('Summer', 'Winter')",
     "ValueError: there is a set \"Winter\" already"},
    {"GroupThatExists", "variants.create_group('Looks')",
     "ValueError: there is a group \"Looks\" already"},
    {"RenamedToAGroupThatExists",
     "variants.create_group('New'); variants.rename_group('New', 'Looks')",
     "ValueError: there is a group \"Looks\" already"},
    {"EmptyNewSet", "variants.create_set('')", "ValueError: name is empty"},
    {"EmptyNewNameOfASet", "variants.rename_set('Summer', '')", "ValueError: new_name is empty"},
    {"EmptyNewGroup", "variants.create_group('')", "ValueError: name is empty"},
    {"EmptyNewNameOfAGroup", "variants.rename_group('Looks', '')", "ValueError: new_name is empty"},
    {"EmptyVariantInASet", "variants.set_state('Summer', 'node', '', 'Open')",
     "ValueError: variant is empty"},
    {"NoneForASet", "variants.create_set(None)", "TypeError: name must be str, not NoneType"},
    {"NoneForAKind", "variants.variants(None)", "TypeError: kind must be str, not NoneType"},
    {"NoneForAState", "variants.select_state('node', 'Roof', None)",
     "TypeError: state must be str, not NoneType"},
    {"BytesForAGroup", "variants.create_set('New', b'Looks')",
     "TypeError: group must be str, not bytes"},
    {"LoneSurrogate", "variants.create_set('a\\ud800')",
     "ValueError: name has half a surrogate pair: 'a\\ud800'"},
    {"LoneSurrogateInALookup", "variants.find_set('\\udfff')",
     "ValueError: name has half a surrogate pair: '\\udfff'"},
    {"Nul", "variants.rename_set('Summer', 'a\\0b')",
     "ValueError: new_name has a NUL character: 'a\\x00b'"},
    {"NulInAState", "variants.set_state('Summer', 'node', 'Roof', '\\0')",
     "ValueError: state has a NUL character: '\\x00'"},
    {"NoArgument", "variants.create_set()",
     "TypeError: create_set() missing 1 required positional argument: 'name'"},
    {"UnknownKeyword", "variants.create_set('New', grup='Looks')",
     "TypeError: create_set() got an unexpected keyword argument 'grup'"},
    {"HugeWidth", "variants.render('x.png', width=10**30)",
     "ValueError: width is from 1 to 16384, not 1000000000000000000000000000000"},
    {"NegativeHeight", "variants.render('x.png', height=-1)",
     "ValueError: height is from 1 to 16384, not -1"},
    {"NoSamples", "variants.render('x.png', samples=0)",
     "ValueError: samples is from 1 to 65536, not 0"},
    {"HugeSamples", "variants.render('x.png', samples=65537)",
     "ValueError: samples is from 1 to 65536, not 65537"},
    {"FractionOfAWidth", "variants.render('x.png', width=1.5)",
     "TypeError: 'float' object cannot be interpreted as an integer"},
    {"NoneForAWidth", "variants.render('x.png', width=None)",
     "TypeError: 'NoneType' object cannot be interpreted as an integer"},
    {"PictureInNoFolder", "variants.render('no/x.png')",
     "FileNotFoundError: [Errno 2] No such file or directory: 'no/x.png'"},
    {"PictureOverAFolder", "variants.render('.')",
     "IsADirectoryError: [Errno 21] Filename refers to a directory: '.'"},
    {"NoneForAPath", "variants.render(None)",
     "TypeError: expected str, bytes or os.PathLike object, not NoneType"},
    {"NulInAPath", "variants.save_scene('a\\0.gltf')",
     "ValueError: path has a NUL character: 'a\\x00.gltf'"},
    {"EmptyPath", "variants.write_document('')",
     "FileNotFoundError: [Errno 2] No such file or directory: ''"},
    {"DocumentInNoFolder", "variants.write_document('no/x.xml')",
     "FileNotFoundError: [Errno 2] No such file or directory: 'no/x.xml'"},
    {"DocumentOverAFolder", "variants.write_document('.')",
     "IsADirectoryError: [Errno 21] Filename refers to a directory: '.'"},
    {"DocumentThatIsNotThere", "variants.read_document('no.xml')",
     "FileNotFoundError: [Errno 2] No such file or directory: 'no.xml'"},
    {"FolderForADocument", "variants.read_document('.')",
     "IsADirectoryError: [Errno 21] Is a directory: '.'"},
    {"HugeDocument", "open('huge', 'wb').truncate(2**30); variants.read_document('huge')",
     "ValueError: cannot read document: huge: larger than 1 GiB"},
    {"SceneInNoFolder", "variants.save_scene('no/x.glb')",
     "FileNotFoundError: [Errno 2] No such file or directory: 'no/x.glb'"},
    {"SceneOverAFolder", "variants.save_scene('.')",
     "IsADirectoryError: [Errno 21] is a directory: '.'"},
    {"FullDeviceForADocument", "variants.write_document('/dev/full')",
     "OSError: [Errno 28] No space left on device: '/dev/full'"},
    {"TooLongNameOfADocument",
     "try: variants.write_document('x' * 300)\n"
     "    except OSError as error: raise ValueError(error.errno)",
     "ValueError: 36"},
    {"TooLongNameOfAPicture",
     "try: variants.render('x' * 300, width=1, height=1, samples=1)\n"
     "    except OSError as error: raise ValueError(error.errno)",
     "ValueError: 36"},
    {"TooLongNameOfAScene",
     "try: variants.save_scene('x' * 300)\n"
     "    except OSError as error: raise ValueError(error.errno)",
     "ValueError: 36"},
    {"TooLargeDocument",
     "import resource as r; r.setrlimit(r.RLIMIT_FSIZE, (10, 10)); variants.write_document('x')",
     "OSError: [Errno 27] File too large: 'x'"},
    {"TooLargeScene",
     "import resource as r; r.setrlimit(r.RLIMIT_FSIZE, (10, 10)); variants.save_scene('x')",
     "OSError: [Errno 27] File too large: 'x'"},
    {"TooLargePicture",
     "import resource as r; r.setrlimit(r.RLIMIT_FSIZE, (10, 10));"
     "variants.render('x', width=9, height=9, samples=1)",
     "OSError: [Errno 27] File too large: 'x'"},
    {"PipeForAScene", "import os; os.mkfifo('pipe'); variants.save_scene('pipe')",
     "OSError: [Errno 5] not a regular file: 'pipe'"},
    {"ErrorOfAFileHasNumberAndName",
     "try: variants.write_document('no/x.xml')\n"
     "    except OSError as error: print(error.errno, error.filename); raise ValueError('end')",
     "2 no/x.xml\nValueError: end"},
    {"AnotherThread",
     "import threading\n"
     "    def work():\n"
     "        try: variants.sets()\n"
     "        except RuntimeError as error: print(error)\n"
     "    thread = threading.Thread(target=work); thread.start(); thread.join()\n"
     "    raise ValueError('end')",
     "variants.sets is for the main thread alone\nValueError: end"},
};

INSTANTIATE_TEST_SUITE_P(Errors, VariantsErrorTest, ::testing::ValuesIn(errors),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
