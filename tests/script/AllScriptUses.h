#pragma once

/**
 * Texts that use each class and each function that scripts find but the capture, in the scene and
 * with the sets that prepareScriptUses makes. None leaves a name behind, and each can be run again.
 */
inline constexpr const char* allScriptUses[] = {
    "assert repr(Vec3f(1, 2, 3)) == 'Vec3f(1, 2, 3)'",
    "assert list(Pnt3f(0, 0, z=1)) == [0, 0, 1] and Pnt3f() != Pnt3f(1, 0, 0) and len(Pnt3f()) == "
    "3",
    "try: Vec3f()[3]\nexcept IndexError: pass\nelse: assert False",
    "assert findNode('Paint') == findNodePath('Paint') and not findNode('None')",
    "assert len(set(findNodes('Paint'))) == 1",
    "assert [n.getName() for n in findNode('Paint').getChildren()] == ['Red', 'Blue']",
    "assert findNode('Red').getParent().getParent().getParent().isValid() is False",
    "findNode('Paint').setChoice(findNode('Paint').getChoice())",
    "findNode('Paint').setActive(findNode('Paint').getActive())",
    "try: findNode('Paint').setChoice(9)\nexcept IndexError: pass\nelse: assert False",
    "assert repr(findMaterial('Paint')) in repr(findMaterials('Paint'))",
    "assert [m.getName() for m in findMaterial('Paint').getSubMaterials()] == ['Red']",
    "findMaterial('Paint').setChoice(findMaterial('Paint').getChoice())",
    "setIgnoreMaterialGroup('Group', True)",
    "activateRenderLayerState('Day')",
    "setClippingPlane(Pnt3f(), Vec3f(), True)",
    "setClippingPlaneVisualization(True, Vec3f())",
    "setClippingGridVisualization(True, Vec3f())",
    "setClippingContourVisualization(True, Vec3f(), 1)",
    "setClippingHideScene(False)",
    "enableClippingPlane(False)",
    "assert getClippingPlanePosition() == Pnt3f() and ' , ' in str(getClippingPlaneNormal())",
    "getClippingPlaneColor(), getClippingGridColor(), getClippingContourColor()",
    "getClippingContourWidth(), getClippingPlaneInvertDirection(), getClippingHideScene()",
    "getClippingShowPlane(), getClippingShowGrid(), getClippingShowContour()",
    "selectVariantSet('Blue')",
    "selectVariantSet('Blue', True)",
    "selectVariantSet('None')",
    "try: selectVariantSet('\\ud800')\nexcept UnicodeEncodeError: pass\nelse: assert False",
    "try: selectVariantSet(name='Blue')\nexcept TypeError: pass\nelse: assert False",
    "activateCapturedVariantSet(name='Blue')",
    "assert kuVariantSetPtr().getName() == ''",
    "blue.setName(blue.getName())",
    "blue.setHotkeyString(blue.getHotkey())",
    "blue.setHotkey(65)",
    "blue.setHotkey(key=65, modifier=0)",
    "blue.addGeometry(node=findNode('Paint'), state='Blue')",
    "blue.addTransform(findNode('Door'), 'Open')",
    "blue.addMaterial(findMaterial('Paint'), 'Red')",
    "blue.addLight(findNode('Sun'), '!Enable')",
    "blue.setClippingState(0)",
    "blue.addClippingPlane(Pnt3f(), Vec3f(), True, True, True, True, True)",
    "blue.addCurrentClippingPlane()",
    "blue.addView('Top')",
    "blue.addScript(blue.getScript())",
    "assert blue.getTargetNodeNames() == ['Paint']",
    "blue.setValue('key', blue.getValue('key'))",
};

/** Makes the scene and the sets, with the set "Blue" as blue in the global namespace. */
class SceneBuilder;
void prepareScriptUses(SceneBuilder& scene);
