#include "afx.h"

const CRuntimeClass CObject::classCObject = {"CObject", nullptr};
