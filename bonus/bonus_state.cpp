#include "bonus/bonus_state.h"

#include "core/variables.h"

namespace bonus {

BonusState Bonus;

void ExposeBonusState() {
  Bonus.BombSparkTable.name = "BombSparkTable";
  Bonus.LineSparkTable.name = "LineSparkTable";
  vars::Expose("BombSparkTable", Bonus.BombSparkTable);
  vars::Expose("LineSparkTable", Bonus.LineSparkTable);
  vars::Expose("SparkNext", Bonus.SparkNext);
  vars::Expose("SparkCount", Bonus.SparkCount);
}

void ResetSparks() {
  Bonus.SparkNext = 0;
  Bonus.SparkCount = 0;
}

}  // namespace bonus
