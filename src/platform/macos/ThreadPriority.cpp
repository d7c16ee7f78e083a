#include "platform/ThreadPriority.h"

#include <pthread/qos.h>

namespace tidlo {

void standBack()
{
    pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
}

} // namespace tidlo
