#include "HealthPool.h"

FHealthPool::FHealthPool(float InMaxHealth)
	: MaxHealth(FMath::Max(1.0f, InMaxHealth))
	, Health(MaxHealth)
{
}

bool FHealthPool::TakeDamage(float Damage)
{
	if (IsDead() || Damage <= 0.0f)
	{
		return false;
	}
	Health = FMath::Max(0.0f, Health - Damage);
	return IsDead();
}

void FHealthPool::Heal(float Amount)
{
	if (!IsDead() && Amount > 0.0f)
	{
		Health = FMath::Min(MaxHealth, Health + Amount);
	}
}

float FHealthPool::GetHealthFraction() const
{
	return Health / MaxHealth;
}
