#pragma once

#include "CoreMinimal.h"

/** The health of a character: damage, healing and the moment it runs out. */
class FHealthPool
{
public:
	explicit FHealthPool(float InMaxHealth = 100.0f);

	/** Takes damage; gives true when this damage ran the health out. */
	bool TakeDamage(float Damage);
	/** Heals up to the maximum; the dead stay dead. */
	void Heal(float Amount);

	float GetHealth() const
	{
		return Health;
	}
	float GetHealthFraction() const;
	bool IsDead() const
	{
		return Health <= 0.0f;
	}

private:
	float MaxHealth;
	float Health;
};
