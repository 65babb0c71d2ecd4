// The "Settings" module: keeps the registered settings pages, by container, category and section.
#include "ISettingsModule.h"
#include "Modules/ModuleManager.h"
#include "UObject/Object.h"

namespace
{
	class FSettingsSection : public ISettingsSection
	{
	public:
		FSettingsSection(FName InName, const FText& InDisplayName, const FText& InDescription, const TWeakObjectPtr<UObject>& InObject, TSharedPtr<SWidget> InWidget)
			: Name(InName)
			, DisplayName(InDisplayName)
			, Description(InDescription)
			, SettingsObject(InObject)
			, CustomWidget(InWidget)
		{
		}
		virtual FName GetName() const override
		{
			return Name;
		}
		virtual FText GetDisplayName() const override
		{
			return DisplayName;
		}
		virtual FText GetDescription() const override
		{
			return Description;
		}
		virtual TWeakObjectPtr<UObject> GetSettingsObject() const override
		{
			return SettingsObject;
		}
		virtual TWeakPtr<SWidget> GetCustomWidget() const override
		{
			return CustomWidget;
		}
		virtual bool CanEdit() const override
		{
			return SettingsObject.IsValid() || CustomWidget.IsValid();
		}
		virtual bool Save() override
		{
			return SettingsObject.IsValid();
		}

	private:
		FName Name;
		FText DisplayName;
		FText Description;
		TWeakObjectPtr<UObject> SettingsObject;
		TSharedPtr<SWidget> CustomWidget;
	};

	class FSettingsCategory : public ISettingsCategory
	{
	public:
		explicit FSettingsCategory(FName InName)
			: Name(InName)
		{
		}
		virtual FName GetName() const override
		{
			return Name;
		}
		virtual FText GetDisplayName() const override
		{
			return FText::FromName(Name);
		}
		virtual ISettingsSectionPtr GetSection(const FName& SectionName, bool bIgnoreVisibility) const override
		{
			for (const TSharedRef<ISettingsSection>& Section : Sections)
			{
				if (Section->GetName() == SectionName)
				{
					return Section;
				}
			}
			return nullptr;
		}
		virtual int32 GetSections(TArray<ISettingsSectionPtr>& OutSections, bool bIgnoreVisibility) const override
		{
			OutSections.Empty();
			for (const TSharedRef<ISettingsSection>& Section : Sections)
			{
				OutSections.Add(Section);
			}
			return OutSections.Num();
		}
		void AddSection(const TSharedRef<ISettingsSection>& Section)
		{
			RemoveSection(Section->GetName());
			Sections.Add(Section);
		}
		void RemoveSection(FName SectionName)
		{
			Sections.RemoveAll([SectionName](const TSharedRef<ISettingsSection>& Section) { return Section->GetName() == SectionName; });
		}

	private:
		FName Name;
		TArray<TSharedRef<ISettingsSection>> Sections;
	};

	class FSettingsContainer : public ISettingsContainer
	{
	public:
		explicit FSettingsContainer(FName InName)
			: Name(InName)
		{
		}
		virtual FName GetName() const override
		{
			return Name;
		}
		virtual ISettingsCategoryPtr GetCategory(const FName& CategoryName) const override
		{
			for (const TSharedRef<FSettingsCategory>& Category : Categories)
			{
				if (Category->GetName() == CategoryName)
				{
					return Category;
				}
			}
			return nullptr;
		}
		virtual int32 GetCategories(TArray<ISettingsCategoryPtr>& OutCategories) const override
		{
			OutCategories.Empty();
			for (const TSharedRef<FSettingsCategory>& Category : Categories)
			{
				OutCategories.Add(Category);
			}
			return OutCategories.Num();
		}
		FSettingsCategory& FindOrAddCategory(FName CategoryName)
		{
			for (const TSharedRef<FSettingsCategory>& Category : Categories)
			{
				if (Category->GetName() == CategoryName)
				{
					return Category.Get();
				}
			}
			TSharedRef<FSettingsCategory> Category = MakeShared<FSettingsCategory>(CategoryName);
			Categories.Add(Category);
			return Category.Get();
		}

	private:
		FName Name;
		TArray<TSharedRef<FSettingsCategory>> Categories;
	};

	class FSettingsModule : public ISettingsModule
	{
	public:
		FSettingsModule()
		{
			// The editor's two containers, with the categories plugins register into.
			for (const TCHAR* ContainerName : {TEXT("Project"), TEXT("Editor")})
			{
				TSharedRef<FSettingsContainer> Container = MakeShared<FSettingsContainer>(ContainerName);
				for (const TCHAR* CategoryName : {TEXT("Project"), TEXT("Game"), TEXT("Engine"), TEXT("Editor"), TEXT("Platforms"), TEXT("Plugins")})
				{
					Container->FindOrAddCategory(CategoryName);
				}
				Containers.Add(Container);
			}
		}

		virtual void GetContainerNames(TArray<FName>& OutNames) const override
		{
			OutNames.Empty();
			for (const TSharedRef<FSettingsContainer>& Container : Containers)
			{
				OutNames.Add(Container->GetName());
			}
		}
		virtual ISettingsContainerPtr GetContainer(const FName& ContainerName) override
		{
			return FindContainer(ContainerName);
		}
		virtual ISettingsSectionPtr RegisterSettings(const FName& ContainerName, const FName& CategoryName, const FName& SectionName, const FText& DisplayName,
			const FText& Description, const TWeakObjectPtr<UObject>& SettingsObject) override
		{
			return Register(ContainerName, CategoryName, MakeShared<FSettingsSection>(SectionName, DisplayName, Description, SettingsObject, nullptr));
		}
		virtual ISettingsSectionPtr RegisterSettings(const FName& ContainerName, const FName& CategoryName, const FName& SectionName, const FText& DisplayName,
			const FText& Description, const TSharedRef<SWidget>& CustomWidget) override
		{
			return Register(ContainerName, CategoryName, MakeShared<FSettingsSection>(SectionName, DisplayName, Description, nullptr, CustomWidget));
		}
		virtual void UnregisterSettings(const FName& ContainerName, const FName& CategoryName, const FName& SectionName) override
		{
			if (TSharedPtr<FSettingsContainer> Container = FindContainer(ContainerName))
			{
				Container->FindOrAddCategory(CategoryName).RemoveSection(SectionName);
			}
		}
		virtual void ShowViewer(const FName& ContainerName, const FName& CategoryName, const FName& SectionName) override
		{
		}

	private:
		TSharedPtr<FSettingsContainer> FindContainer(FName ContainerName) const
		{
			for (const TSharedRef<FSettingsContainer>& Container : Containers)
			{
				if (Container->GetName() == ContainerName)
				{
					return Container;
				}
			}
			return nullptr;
		}

		ISettingsSectionPtr Register(FName ContainerName, FName CategoryName, const TSharedRef<ISettingsSection>& Section)
		{
			// An unknown container gets made, as the editor makes containers on first use.
			TSharedPtr<FSettingsContainer> Container = FindContainer(ContainerName);
			if (!Container.IsValid())
			{
				Container = MakeShared<FSettingsContainer>(ContainerName);
				Containers.Add(Container.ToSharedRef());
			}
			Container->FindOrAddCategory(CategoryName).AddSection(Section);
			return Section;
		}

		TArray<TSharedRef<FSettingsContainer>> Containers;
	};
}

IMPLEMENT_MODULE(FSettingsModule, Settings)
