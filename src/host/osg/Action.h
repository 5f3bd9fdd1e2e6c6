#pragma once

namespace osg {

/** What a walk over nodes is told by those it calls. */
struct Action {
  enum ResultE {
    Continue,  ///< go on below this node
    Skip,      ///< leave out what is below this node
    Break,     ///< leave out the rest of this node's siblings too
    Quit       ///< end the walk
  };
};

}  // namespace osg
